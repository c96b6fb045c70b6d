// A subject of a picture: one state of one part of the interface, and the function that sets it up
// and paints it.
//
// Thread:  the main thread, with a QApplication.
// Errors:  a scene that cannot be set up returns a null picture.
#pragma once

#include "ui/theme/theme.h"

#include <QImage>
#include <functional>
#include <string>
#include <vector>

namespace glidemap::test {

struct PictureVariant {
    std::string language; // "en" or "zh"
    ColorScheme scheme = ColorScheme::light;

    std::string suffix() const {
        return language + (scheme == ColorScheme::light ? "-light" : "-dark");
    }
};

struct Scene {
    std::string group;
    std::string name; // the file's name, without the variant
    std::string caption;
    std::function<QImage()> paint; // in the current language and colours
    bool inBrief = false;          // also part of --brief
};

std::vector<Scene> settingsScenes();
std::vector<Scene> editorScenes();
std::vector<Scene> menuAndAlertScenes();
std::vector<Scene> drawingScenes(); // demonstrations, symbols and icons

} // namespace glidemap::test

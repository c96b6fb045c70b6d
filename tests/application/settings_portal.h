// The real portal that tells programs how the user wants them to look, with the backend that knows one
// desktop's settings.
//
// Thread:  one.
// Owner:   a desktop, which outlives it.
// Errors:  a portal that is not ready in time is a failure of the test.
#pragma once

#include "desktops/program.h"

#include <memory>
#include <string>

namespace glidemap::application {

class PanelDesktop;

class SettingsPortal {
public:
    static constexpr const char* name = "org.freedesktop.portal.Desktop";
    static constexpr const char* gtkBackend = "org.freedesktop.impl.portal.desktop.gtk";
    static constexpr const char* kdeBackend = "org.freedesktop.impl.portal.desktop.kde";

    // `more` is added to the backend's environment.
    SettingsPortal(const PanelDesktop& desktop, const std::string& backend,
                   const desktops::Environment& more = {});

private:
    std::unique_ptr<desktops::Program> backendProgram;
    std::unique_ptr<desktops::Program> portal;
};

// Makes GTK keep its settings in a file of the desktop under test, instead of the user's database.
extern const desktops::Environment settingsInFile;

void chooseForGtk(const PanelDesktop& desktop, bool dark);

} // namespace glidemap::application

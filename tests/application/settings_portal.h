// The real portal for appearance settings, with the backend of one desktop.
//
// Thread:  one.
// Owner:   a desktop, which outlives it.
// Errors:  a portal that does not start in time fails the test.
#pragma once

#include "desktops/program.h"

#include <memory>
#include <string>

namespace glidemap::test {

class PanelDesktop;

class SettingsPortal {
public:
    static constexpr const char* name = "org.freedesktop.portal.Desktop";
    static constexpr const char* gtkBackend = "org.freedesktop.impl.portal.desktop.gtk";
    static constexpr const char* kdeBackend = "org.freedesktop.impl.portal.desktop.kde";

    // `more` is added to the backend's environment.
    SettingsPortal(const PanelDesktop& desktop, const std::string& backend,
                   const Environment& more = {});

private:
    std::unique_ptr<Program> backendProgram;
    std::unique_ptr<Program> portal;
};

// Makes GTK store its settings in a file of the desktop under test, instead of the user's database.
extern const Environment settingsInFile;

void chooseForGtk(const PanelDesktop& desktop, bool dark);

} // namespace glidemap::test

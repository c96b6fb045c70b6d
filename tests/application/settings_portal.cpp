#include "settings_portal.h"

#include "panel_desktop.h"
#include "service_program.h"

namespace glidemap::test {

const Environment settingsInFile = {{"GSETTINGS_BACKEND", "keyfile"}};

// Starts the backend itself, and before the portal that calls it, because the private bus starts no
// services.
SettingsPortal::SettingsPortal(const PanelDesktop& desktop, const std::string& backend,
                               const Environment& more)
    : backendProgram(desktop.start({serviceProgram(backend)}, more)) {
    desktop.session.waitForName(backend);
    portal = desktop.start({serviceProgram(name)}, more);
    desktop.session.waitForName(name);
}

void chooseForGtk(const PanelDesktop& desktop, bool dark) {
    desktop.run({"gsettings", "set", "org.gnome.desktop.interface", "color-scheme",
                 dark ? "prefer-dark" : "prefer-light"},
                settingsInFile);
}

} // namespace glidemap::test

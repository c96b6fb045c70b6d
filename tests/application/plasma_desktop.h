// Plasma: its shell with a panel that has only the system tray, the daemon that provides the
// watcher of status items, and KDE's portal. The compositor is a window on the test's own X server.
// Screenshots come from the X server, because the compositor cannot take any without a graphics
// card.
//
// Units:   pixels from the compositor's top left corner.
// Thread:  one.
// Owner:   a test.
// Errors:  as for PanelDesktop.
#pragma once

#include "panel_desktop.h"
#include "settings_portal.h"

#include <memory>
#include <optional>

namespace glidemap::test {

class PlasmaDesktop : public PanelDesktop {
public:
    // Returns the name of a missing program, service or package; empty if all are installed.
    static std::string missing();

    PlasmaDesktop();

    Environment environment() const override;
    void startPanel() override;
    void killPanel() override { shell.reset(); }
    Picture panel() const override;
    void startPortal() override { portal.emplace(*this, SettingsPortal::kdeBackend); }
    void choose(ColorScheme scheme) const override;
    Picture screen() const override;

private:
    void startCompositor();
    void startDaemons();

    XDisplay display{home};
    std::unique_ptr<Program> compositor;
    Rectangle area; // the compositor's window on the X server
    std::unique_ptr<Program> activities;
    std::unique_ptr<Program> daemon;
    std::unique_ptr<Program> shell;
    std::optional<SettingsPortal> portal;
};

} // namespace glidemap::test

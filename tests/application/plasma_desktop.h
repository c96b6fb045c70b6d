// Plasma: its shell with a panel and nothing but the system tray on it, the daemon that has the watcher,
// and KDE's portal. The compositor is a window on an X server of the test's own, where
// pictures of it can be taken: without a graphics card it takes none itself.
//
// Units:   pixels from the compositor's top left corner.
// Thread:  one.
// Owner:   a test.
// Errors:  as a PanelDesktop's.
#pragma once

#include "panel_desktop.h"
#include "settings_portal.h"

#include <memory>
#include <optional>

namespace glidemap::application {

class PlasmaDesktop : public PanelDesktop {
public:
    // A program that is not installed; empty if all are.
    static std::string missing();

    PlasmaDesktop();

    desktops::Environment environment() const override;
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
    std::unique_ptr<desktops::Program> compositor;
    Rectangle area; // the compositor's on the X server
    std::unique_ptr<desktops::Program> activities;
    std::unique_ptr<desktops::Program> daemon;
    std::unique_ptr<desktops::Program> shell;
    std::optional<SettingsPortal> portal;
};

} // namespace glidemap::application

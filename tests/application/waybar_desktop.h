// Waybar's tray on sway, with the portal that reads GTK's settings.
//
// Thread:  one.
// Owner:   a test.
// Errors:  as for PanelDesktop.
#pragma once

#include "desktops/sway.h"
#include "panel_desktop.h"
#include "settings_portal.h"

#include <memory>
#include <optional>

namespace glidemap::test {

class WaybarDesktop : public PanelDesktop {
public:
    // Returns the name of a missing program; empty if all are installed.
    static std::string missing();

    Environment environment() const override;
    void startPanel() override;
    void killPanel() override { bar.reset(); }
    Picture panel() const override;
    void startPortal() override {
        portal.emplace(*this, SettingsPortal::gtkBackend, settingsInFile);
    }
    void choose(ColorScheme scheme) const override;
    Picture screen() const override;

private:
    Sway sway;
    std::unique_ptr<Program> bar;
    std::optional<SettingsPortal> portal;
};

} // namespace glidemap::test

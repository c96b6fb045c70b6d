// Xfce's panel on X11, with the portal that reads GTK's settings.
//
// Thread:  one.
// Owner:   a test.
// Errors:  as for PanelDesktop.
#pragma once

#include "panel_desktop.h"
#include "settings_portal.h"
#include "xfce_panel.h"

#include <optional>

namespace glidemap::test {

class XfceDesktop : public PanelDesktop {
public:
    // Returns the name of a missing program; empty if all are installed.
    static std::string missing();

    Environment environment() const override;
    void startPanel() override;
    void killPanel() override { bar.reset(); }
    Picture panel() const override { return {display, bar->area()}; }
    void startPortal() override {
        portal.emplace(*this, SettingsPortal::gtkBackend, settingsInFile);
    }
    void choose(ColorScheme scheme) const override;
    Picture screen() const override { return {display, {0, 0, 1280, 800}}; }

private:
    XDisplay display{home};
    std::optional<XfcePanel> bar;
    std::optional<SettingsPortal> portal;
};

} // namespace glidemap::test

#include "x11_desktops.h"

#include "desktops/runtime_folder.h"
#include "picture.h"
#include "variant.h"
#include "waiting.h"
#include "x_display.h"
#include "xfce_panel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <optional>
#include <string_view>
#include <vector>

namespace glidemap::test {

namespace {

bool isTrue(const OwnedVariant& value) {
    return value != nullptr && g_variant_get_boolean(value.get()) != FALSE;
}

bool isActive(const PrivateBus& bus, const char* service, const char* path) {
    const OwnedVariant answer = call(bus.connection(), {service, path, service}, "GetActive");
    return answer != nullptr && isTrue(childOf(answer, 0));
}

// Starts the desktop's own window manager. The subclasses start the rest of the desktop.
class X11Desktop : public Desktop {
public:
    explicit X11Desktop(const std::vector<std::string>& windowManager, Environment more = {})
        : settings(ownSettings(std::move(more))), display(folder, {windowManager, settings}) {
        settings["DISPLAY"] = display.name();
    }

    Environment environment() const override { return settings; }
    const PrivateBus& bus() const override { return session; }
    std::string windowProgram() const override { return GLIDEMAP_X_CLIENT; }

    // First waits until all windows are shown, because a window manager may focus each window that
    // it shows, even if another window was activated before.
    void activate(const std::string& application) override {
        EXPECT_TRUE(waitUntil([this] { return display.showsAllWindows(); }))
            << "a window is not shown";
        const std::vector<ManagedWindow> all = display.windows();
        const auto found = std::ranges::find(all, application, &ManagedWindow::className);
        ASSERT_NE(found, all.end()) << "no window of " << application;
        display.activate(*found);
    }

    void minimize(const std::string& application) override {
        const std::vector<ManagedWindow> all = display.windows();
        const auto found = std::ranges::find(all, application, &ManagedWindow::className);
        ASSERT_NE(found, all.end()) << "no window of " << application;
        display.minimize(*found);
        EXPECT_TRUE(waitUntil([&] { return display.activeWindow() != found->id; }));
    }

    void showSecondWorkspace() override {
        display.showWorkspace(1);
        EXPECT_TRUE(waitUntil([&] { return display.shownWorkspace() == 1U; }));
    }

protected:
    Program::Command command(std::vector<std::string> words) const {
        return {.words = std::move(words),
                .environment = settings,
                .log = folder.path() / "desktop.log"};
    }

    bool hasWindowOf(const std::string& className) const {
        const std::vector<ManagedWindow> all = display.windows();
        return std::ranges::find(all, className, &ManagedWindow::className) != all.end();
    }

private:
    Environment ownSettings(Environment more) const {
        more.merge(plainEnvironment(folder.path()));
        more["DBUS_SESSION_BUS_ADDRESS"] = session.address();
        more["DBUS_SYSTEM_BUS_ADDRESS"] = system.address();
        more["NO_AT_BRIDGE"] = "1";
        return more;
    }

    RuntimeFolder folder;
    PrivateBus session;
    PrivateBus system;
    Environment settings;

protected:
    XDisplay display;
};

class OpenboxDesktop : public X11Desktop {
public:
    OpenboxDesktop() : X11Desktop({"openbox", "--sm-disable"}) {}
};

// Starts the window manager, the desktop and the panel, as an Xfce session does.
class XfceDesktop : public X11Desktop {
public:
    XfceDesktop()
        : X11Desktop({"xfwm4", "--compositor=off", "--sm-client-disable"},
                     {{"XDG_CURRENT_DESKTOP", "XFCE"}}),
          panel(display, bus()), desktop(command({"xfdesktop", "--sm-client-disable"})) {
        bus().waitForName("org.xfce.xfdesktop");
        if (isInstalled("xfce4-screensaver")) {
            screenSaver.emplace(command({"xfce4-screensaver"}));
            bus().waitForName("org.xfce.ScreenSaver");
        }
    }

    bool isLocked() const override {
        return isActive(bus(), "org.xfce.ScreenSaver", "/org/xfce/ScreenSaver");
    }

    // An empty panel has only a background and a line; an icon has smooth edges with many shades.
    bool showsStatusItem() const override {
        constexpr std::size_t minColours = 10;
        return Picture(display, panel.area()).countOfColours() >= minColours;
    }

private:
    XfcePanel panel;
    Program desktop;
    std::optional<Program> screenSaver;
};

class CinnamonDesktop : public X11Desktop {
public:
    CinnamonDesktop()
        : X11Desktop({"cinnamon"}, {{"GSETTINGS_BACKEND", "keyfile"},
                                    {"LIBGL_ALWAYS_SOFTWARE", "1"},
                                    {"XDG_CURRENT_DESKTOP", "X-Cinnamon"}}) {
        bus().waitForName("org.Cinnamon");
        EXPECT_TRUE(waitUntil([this] { return overview() != nullptr; }));
        screenSaver.emplace(command({commandOfService("org.cinnamon.ScreenSaver")}));
        bus().waitForName("org.cinnamon.ScreenSaver");
    }

    bool isOverviewOpen() const override { return isTrue(overview()); }

    bool isLocked() const override {
        return isActive(bus(), "org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver");
    }

    bool showsStatusItem() const override { return display.hasEmbeddedWindow(); }

private:
    OwnedVariant overview() const {
        return property(bus().connection(), {"org.Cinnamon", "/org/Cinnamon", "org.Cinnamon"},
                        "OverviewActive");
    }

    std::optional<Program> screenSaver;
};

} // namespace

std::string commandOfService(const std::string& name) {
    std::ifstream service("/usr/share/dbus-1/services/" + name + ".service");
    constexpr std::string_view key = "Exec=";
    for (std::string line; std::getline(service, line);) {
        if (line.starts_with(key)) {
            return line.substr(key.size());
        }
    }
    return {};
}

std::unique_ptr<Desktop> startOpenbox() {
    return std::make_unique<OpenboxDesktop>();
}

std::unique_ptr<Desktop> startXfce() {
    return std::make_unique<XfceDesktop>();
}

std::unique_ptr<Desktop> startCinnamon() {
    return std::make_unique<CinnamonDesktop>();
}

} // namespace glidemap::test

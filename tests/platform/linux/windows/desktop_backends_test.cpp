#include "desktops/scoped_environment.h"
#include "desktops/x_client.h"
#include "desktops/x_server.h"
#include "platform/linux/windows/desktop_backends.h"

#include <gmock/gmock.h>

#include <future>

namespace glidemap {
namespace {

using test::XServer;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(DesktopBackends, TriesWaylandBackendsFirstAndX11Last) {
    EXPECT_THAT(desktopsToTry("", ""), IsEmpty());
    EXPECT_THAT(desktopsToTry("", ":0"), ElementsAre(DesktopKind::x11));
    EXPECT_THAT(desktopsToTry("wayland-0", ""),
                ElementsAre(DesktopKind::gnome, DesktopKind::kwin, DesktopKind::wlroots));
    EXPECT_THAT(
        desktopsToTry("wayland-0", ":0"),
        ElementsAre(DesktopKind::gnome, DesktopKind::kwin, DesktopKind::wlroots, DesktopKind::x11));
}

class FirstActive : public WindowListener {
public:
    void activeWindowChanged(const std::optional<WindowIdentity>& window) override {
        active.set_value(window ? window->appID : "none");
    }
    void windowsChanged(const std::vector<WindowIdentity>& /*windows*/) override {}

    std::promise<std::string> active;
};

// Without a compositor and a bus, no Wayland backend may start.
TEST(DesktopBackends, StartsOnlyTheBackendOfTheRunningDesktop) {
    if (const std::string reason = XServer::whyNot(); !reason.empty())
        GTEST_SKIP() << reason;
    const XServer server;
    test::XClient window(server);
    window.describe("one", "One");
    window.map();
    window.useRoot();
    window.setNumbers("_NET_ACTIVE_WINDOW", std::to_string(window.window()));
    const test::ScopedEnvironment environment({{"DISPLAY", server.display()},
                                               {"WAYLAND_DISPLAY", "no-such-compositor"},
                                               {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"},
                                               {"XDG_CURRENT_DESKTOP", ""}});

    FirstActive listener;
    DesktopThread thread;
    std::unique_ptr<WindowBackend> started;
    int refused = 0;
    thread.call([&] {
        for (const WindowBackendFactory& make : desktopBackends(thread)) {
            started = make();
            if (started->start(listener))
                break;
            started.reset();
            ++refused;
        }
    });
    EXPECT_EQ(refused, 3);
    ASSERT_NE(started, nullptr);
    EXPECT_EQ(listener.active.get_future().get(), "One");
    thread.call([&] { started.reset(); });
}

} // namespace
} // namespace glidemap

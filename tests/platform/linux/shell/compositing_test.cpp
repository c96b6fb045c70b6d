#include "desktops/scoped_environment.h"
#include "desktops/x_server.h"
#include "platform/linux/shell/compositing.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <cstdlib>

namespace glidemap {
namespace {

using test::ScopedEnvironment;
using test::XServer;

// Owns the selection of a compositing manager, but does not composite.
void composeScreen(xcb_connection_t* server) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(server)).data;
    const xcb_window_t window = xcb_generate_id(server);
    xcb_create_window(server, 0, window, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    const auto asked = xcb_intern_atom(server, 0, 13, "_NET_WM_CM_S0");
    auto* atom = xcb_intern_atom_reply(server, asked, nullptr);
    ASSERT_NE(atom, nullptr);
    xcb_set_selection_owner(server, window, atom->atom, XCB_CURRENT_TIME);
    std::free(atom);
    // The round trip waits until the server has processed the request.
    std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

TEST(CompositingTest, WaylandDesktopAlwaysComposites) {
    const ScopedEnvironment both({{"WAYLAND_DISPLAY", "wayland-9"}, {"DISPLAY", ":987"}});
    EXPECT_TRUE(desktopComposites());
}

TEST(CompositingTest, MissingDisplayCountsAsCompositing) {
    const ScopedEnvironment none({{"WAYLAND_DISPLAY", ""}, {"DISPLAY", ""}});
    EXPECT_TRUE(desktopComposites());
}

TEST(CompositingTest, X11DesktopCompositesOnlyIfACompositingManagerRuns) {
    if (const std::string reason = XServer::whyNot(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    const XServer server;
    const ScopedEnvironment onX({{"WAYLAND_DISPLAY", ""}, {"DISPLAY", server.display()}});
    EXPECT_FALSE(desktopComposites());
    xcb_connection_t* manager = xcb_connect(nullptr, nullptr);
    composeScreen(manager);
    EXPECT_TRUE(desktopComposites());
    xcb_disconnect(manager);
}

class RecentCompositingTest : public testing::Test {
protected:
    RecentCompositing::Clock::time_point now;
    bool isComposed = false;
    int asked = 0;
    RecentCompositing recent{[this] {
                                 ++asked;
                                 return isComposed;
                             },
                             [this] {
                                 return now;
                             }};
};

TEST_F(RecentCompositingTest, CachesTheResultForConsecutiveMenus) {
    for (int menu = 0; menu < 4; ++menu) {
        EXPECT_FALSE(recent.composites());
    }
    EXPECT_EQ(asked, 1);
}

TEST_F(RecentCompositingTest, DetectsANewCompositingManagerWhenTheCacheExpires) {
    EXPECT_FALSE(recent.composites());
    isComposed = true;
    now += RecentCompositing::recently - std::chrono::nanoseconds(1);
    EXPECT_FALSE(recent.composites());
    now += std::chrono::nanoseconds(1);
    EXPECT_TRUE(recent.composites());
    isComposed = false;
    now += RecentCompositing::recently;
    EXPECT_FALSE(recent.composites());
    EXPECT_EQ(asked, 3);
}

} // namespace
} // namespace glidemap

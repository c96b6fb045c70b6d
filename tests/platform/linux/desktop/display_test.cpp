#include "desktops/sway.h"
#include "desktops/x_server.h"
#include "kit/in_environment.h"
#include "platform/linux/desktop/display.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace glidemap {
namespace {

TEST(DisplayTest, DisplayIsMissingIfTheVariablesAreUnsetOrNoServerIsReachable) {
    struct Row {
        const char* wayland;
        const char* x11;
    };
    const Row rows[] = {
        {nullptr, nullptr},           {"", ""},
        {"no-such-display", nullptr}, {nullptr, ":4321"},
        {"no-such-display", ":4321"}, {nullptr, "nonsense"},
    };
    for (const Row& row : rows) {
        const test::InEnvironment wayland("WAYLAND_DISPLAY", row.wayland);
        const test::InEnvironment x11("DISPLAY", row.x11);
        EXPECT_FALSE(hasDisplay()) << (row.wayland != nullptr ? row.wayland : "(none)") << " and "
                                   << (row.x11 != nullptr ? row.x11 : "(none)");
    }
}

TEST(DisplayTest, X11DisplayIsAvailableUntilItsServerExits) {
    if (const std::string reason = test::XServer::whyNot(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    const test::InEnvironment wayland("WAYLAND_DISPLAY", nullptr);
    std::optional<test::XServer> server(std::in_place);
    const test::InEnvironment x11("DISPLAY", server->display().c_str());
    EXPECT_TRUE(hasDisplay());
    server.reset();
    EXPECT_FALSE(hasDisplay());
}

TEST(DisplayTest, WaylandDisplayIsAvailableUntilItsCompositorExits) {
    if (!test::isInstalled("sway")) {
        GTEST_SKIP() << "sway is not installed";
    }
    std::optional<test::Sway> sway(std::in_place);
    const test::InEnvironment folder("XDG_RUNTIME_DIR",
                                     sway->environment().at("XDG_RUNTIME_DIR").c_str());
    const test::InEnvironment wayland("WAYLAND_DISPLAY",
                                      sway->environment().at("WAYLAND_DISPLAY").c_str());
    const test::InEnvironment x11("DISPLAY", nullptr);
    EXPECT_TRUE(hasDisplay());
    sway.reset();
    EXPECT_FALSE(hasDisplay());
}

} // namespace
} // namespace glidemap

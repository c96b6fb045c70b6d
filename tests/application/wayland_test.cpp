// Tests the program on a Wayland compositor.
#include "accessibility.h"
#include "desktops/private_bus.h"
#include "desktops/sway.h"
#include "kit/temporary_folder.h"
#include "picture.h"
#include "waiting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <csignal>

namespace glidemap::test {
namespace {

constexpr const char* busLauncher = "/usr/libexec/at-spi-bus-launcher";

// In sway's tree, only windows have an app id.
void collectWindows(const nlohmann::json& node, std::vector<nlohmann::json>& windows) {
    if (node.contains("app_id")) {
        windows.push_back(node);
    }
    for (const char* const children : {"nodes", "floating_nodes"}) {
        for (const nlohmann::json& child : node.value(children, nlohmann::json::array())) {
            collectWindows(child, windows);
        }
    }
}

class WaylandTest : public testing::Test {
protected:
    void SetUp() override {
        for (const char* const program : {"sway", "swaymsg", "grim"}) {
            if (!test::isInstalled(program)) {
                GTEST_SKIP() << program << " is not installed";
            }
        }
    }

    Environment environment() const {
        Environment values = sway.environment();
        for (const auto& [name, folder] :
             {std::pair("XDG_CONFIG_HOME", "config"), std::pair("XDG_DATA_HOME", "data"),
              std::pair("XDG_STATE_HOME", "state")}) {
            values[name] = home.path() / folder;
        }
        values["DBUS_SESSION_BUS_ADDRESS"] = session.address();
        values["DBUS_SYSTEM_BUS_ADDRESS"] = system.address();
        values["GLIDEMAP_TOUCH_DRIVER"] = GLIDEMAP_STAGED_DRIVER;
        values["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
        values["QT_QPA_PLATFORM"] = "wayland";
        return values;
    }

    Program::Command command(std::vector<std::string> words) const {
        return {.words = std::move(words),
                .environment = environment(),
                .log = home.path() / "glidemap.log"};
    }

    // Runs the shell command with the path of a file as its last argument. Returns that path.
    std::filesystem::path written(const std::string& line) const {
        const std::filesystem::path file = home.path() / "written";
        Program shell(command({"sh", "-c", line + " \"$0\"", file}));
        EXPECT_EQ(shell.finish(), 0) << line;
        return file;
    }

    std::vector<nlohmann::json> windows() const {
        std::vector<nlohmann::json> found;
        const std::string text = contentOf(written("f() { swaymsg -r -t get_tree > \"$1\"; }; f"));
        collectWindows(nlohmann::json::parse(text), found);
        return found;
    }

    Sway sway;
    PrivateBus session;
    PrivateBus system;
    TemporaryFolder home{"/tmp"};
};

TEST_F(WaylandTest, WindowHasTheDesktopEntryIdentifierAndShowsTheSettings) {
    const Accessibility accessibility(session, command({busLauncher, "--launch-immediately"}));
    Program glidemap(command({GLIDEMAP_PROGRAM}));
    ASSERT_TRUE(waitUntil([&] { return !windows().empty(); }))
        << contentOf(home.path() / "glidemap.log");
    const nlohmann::json window = windows().at(0);
    EXPECT_EQ(window.at("app_id"), "org.glidemap.Glidemap");
    EXPECT_EQ(window.at("name"), "Glidemap");
    EXPECT_EQ(window.at("pid"), glidemap.process());
    EXPECT_TRUE(waitUntil([&] {
        const Controls all = accessibility.controlsOf(glidemap.process());
        return std::any_of(all.begin(), all.end(), [](const Control& each) {
            return each.name == "Trackpad Gesture Bindings";
        });
    }));
    EXPECT_TRUE(waitUntil([&] { return Picture(written("grim")).countOfColours() > 50; }))
        << "the screen is almost blank";
    kill(glidemap.process(), SIGTERM);
    EXPECT_EQ(glidemap.finish(), 0);
}

TEST_F(WaylandTest, ProgramExitsWithoutACrashWhenTheCompositorIsLost) {
    Program glidemap(command({GLIDEMAP_PROGRAM}));
    ASSERT_TRUE(waitUntil([&] { return !windows().empty(); }));
    sway.kill();
    // Without a compositor, Qt exits with status 1 up to Qt 6.4, and with -1 in later versions.
    EXPECT_THAT(glidemap.finish(), testing::AnyOf(1, 255))
        << contentOf(home.path() / "glidemap.log");
}

TEST_F(WaylandTest, SecondLaunchReopensTheClosedWindow) {
    Program glidemap(command({GLIDEMAP_PROGRAM}));
    ASSERT_TRUE(waitUntil([&] { return !windows().empty(); }));
    sway.command("[app_id=org.glidemap.Glidemap] kill");
    ASSERT_TRUE(waitUntil([&] { return windows().empty(); }));
    Program second(command({GLIDEMAP_PROGRAM}));
    EXPECT_EQ(second.finish(), 0);
    EXPECT_TRUE(waitUntil([&] { return !windows().empty(); }));
    kill(glidemap.process(), SIGTERM);
    EXPECT_EQ(glidemap.finish(), 0);
}

} // namespace
} // namespace glidemap::test

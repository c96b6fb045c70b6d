// Tests the program itself on each desktop: its window, its status item, and a second launch.
#include "desktop_test_base.h"
#include "desktops/fake_service.h"
#include "kit/temporary_folder.h"
#include "seen_workspace.h"

#include <csignal>
#include <optional>

namespace glidemap::test {
namespace {

constexpr const char* identifier = "org.glidemap.Glidemap";

// A status bar on the desktop's bus, for desktops without one.
class FakeStatusBarService {
public:
    FakeStatusBarService(const Desktop& desktop, StatusBar present) {
        if (present == StatusBar::none) {
            bar.emplace(desktop.bus().address(), watcher, journal);
            bar->set("IsStatusNotifierHostRegistered", true);
            desktop.bus().waitForName(watcher.name);
        }
    }

private:
    const ServiceDescription watcher{
        "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
        "<interface name='org.kde.StatusNotifierWatcher'>"
        "<method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>"
        "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/></interface>"};
    Journal journal;
    std::optional<FakeService> bar;
};

class ProgramTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        folder.install(identifier, "Name=Glidemap\nExec=sh\nStartupWMClass=Glidemap\n");
    }

    std::filesystem::path logFile() const { return home.path() / "glidemap.log"; }

    Program::Command command() const {
        Environment values = desktop->environment();
        for (const auto& [name, below] :
             {std::pair("XDG_CONFIG_HOME", "config"), std::pair("XDG_DATA_HOME", "data"),
              std::pair("XDG_STATE_HOME", "state")}) {
            values[name] = home.path() / below;
        }
        values["GLIDEMAP_TOUCH_DRIVER"] = GLIDEMAP_STAGED_DRIVER;
        values["QT_QPA_PLATFORM"] = values.contains("WAYLAND_DISPLAY") ? "wayland" : "xcb";
        return {.words = {GLIDEMAP_PROGRAM}, .environment = values, .log = logFile()};
    }

    bool waitForLog(const std::string& text) const {
        return waitUntil([&] { return contentOf(logFile()).find(text) != std::string::npos; });
    }

    void expectEnd(Program& glidemap) const {
        kill(glidemap.process(), SIGTERM);
        EXPECT_EQ(glidemap.finish(), 0) << contentOf(logFile());
    }

    TemporaryFolder home{"/tmp"};
};

TEST_P(ProgramTest, SettingsWindowOpensInFront) {
    Program glidemap(command());
    const SeenWorkspace seen;
    seen.expectFrontmost(identifier);
    seen.expectRunning({}); // an accessory application is not listed
    expectEnd(glidemap);
}

TEST_P(ProgramTest, SecondLaunchExitsAndBringsTheWindowForward) {
    const FakeStatusBarService bar(*desktop,
                                   GetParam().statusBar); // a missing bar would cause an alert
    Program glidemap(command());
    const SeenWorkspace seen;
    seen.expectFrontmost(identifier);
    const auto first = open("first");
    seen.expectRunning({"first"});
    desktop->activate("first");
    seen.expectFrontmost("first");
    Program::Command again = command();
    again.environment["XDG_ACTIVATION_TOKEN"] = desktop->activationToken();
    Program second(again);
    EXPECT_EQ(second.finish(), 0) << contentOf(logFile());
    seen.expectFrontmost(identifier);
    expectEnd(glidemap);
}

TEST_P(ProgramTest, AlertAboutAMissingStatusBarDoesNotStealTheKeyboardFocus) {
    if (GetParam().statusBar == StatusBar::shown) {
        GTEST_SKIP() << "this desktop has a status bar";
    }
    Program::Command logging = command();
    logging.environment["GLIDEMAP_LOG"] = "1";
    const SeenWorkspace seen;
    std::optional<Program> glidemap;
    std::unique_ptr<Program> other;
    // The alert is due ten seconds after the start. On a very busy machine, the other window may
    // come forward too late, and the alert is then shown immediately. This function returns whether
    // it was in time.
    const auto otherWindowIsInFrontInTime = [&] {
        glidemap.reset();
        std::filesystem::remove(logFile());
        glidemap.emplace(logging);
        seen.expectFrontmost(identifier);
        other = open("other");
        seen.expectRunning({"other"});
        desktop->activate("other");
        seen.expectFrontmost("other");
        EXPECT_TRUE(waitForLog("the alert "));
        return contentOf(logFile()).find("the alert is shown") == std::string::npos;
    };
    constexpr int maxAttempts = 5;
    int attempts = 1;
    while (!otherWindowIsInFrontInTime()) {
        ASSERT_LT(attempts++, maxAttempts) << contentOf(logFile());
        other.reset();
    }
    EXPECT_TRUE(waitForLog("the alert waits until Glidemap is in front"));
    seen.expectFrontmost("other");
    logging.environment["XDG_ACTIVATION_TOKEN"] = desktop->activationToken();
    Program again(logging);
    EXPECT_EQ(again.finish(), 0) << contentOf(logFile());
    EXPECT_TRUE(waitForLog("the alert is shown"));
    expectEnd(*glidemap);
}

TEST_P(ProgramTest, StatusItemAppearsIfTheDesktopHasAStatusBar) {
    EXPECT_FALSE(desktop->showsStatusItem());
    Program glidemap(command());
    if (GetParam().statusBar == StatusBar::shown) {
        EXPECT_TRUE(waitUntil([&] { return desktop->showsStatusItem(); }));
    } else {
        const SeenWorkspace seen;
        seen.expectFrontmost(identifier); // by now, the program has looked for a status bar
        EXPECT_FALSE(isOnBus("org.kde.StatusNotifierWatcher"));
    }
    expectEnd(glidemap);
}

INSTANTIATE_TEST_SUITE_P(On, ProgramTest, testing::ValuesIn(allDesktops()), nameOf);

} // namespace
} // namespace glidemap::test

// Tests what Orca speaks: names, roles and states, in the order in which a user reaches them.
#include "application_test_base.h"
#include "screen_reader.h"
#include "waiting.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

class ScreenReaderTest : public ApplicationTest {
protected:
    void SetUp() override {
        ApplicationTest::SetUp();
        if (!IsSkipped() && !ScreenReader::isInstalled()) {
            GTEST_SKIP() << "Orca is not installed";
        }
    }

    void open() { open(stage.command()); }

    void open(const Program::Command& command) {
        reader = std::make_unique<ScreenReader>(stage);
        glidemap = std::make_unique<RunningGlidemap>(stage, command);
        ASSERT_TRUE(glidemap->waitForWindow());
    }

    // Qt sends no events until it knows which events Orca wants. On a busy machine, the window may
    // get the focus earlier, and Orca stays silent. A user would then switch to the window again.
    void expectToHearTheOpenedWindow(const std::vector<std::string>& parts) const {
        constexpr std::chrono::seconds usersPatience(10);
        auto switched = std::chrono::steady_clock::now();
        EXPECT_TRUE(waitUntil([&] {
            if (reader->hasSpoken(parts)) {
                return true;
            }
            if (std::chrono::steady_clock::now() > switched + usersPatience) {
                switchAwayAndBack();
                switched = std::chrono::steady_clock::now();
            }
            return false;
        })) << failure(parts);
    }

    void switchAwayAndBack() const {
        if (const auto window = glidemap->window()) {
            stage.display.minimize(*window);
            stage.display.activate(*window);
        }
    }

    void expectToHear(const std::vector<std::string>& parts) const {
        EXPECT_TRUE(reader->hears(parts)) << failure(parts);
    }

    std::string failure(const std::vector<std::string>& parts) const {
        return testing::PrintToString(parts) + " is not in\n" + reader->transcript();
    }

    void pressAndExpectToHear(const std::string& key, const std::vector<std::string>& parts) const {
        stage.hands.press(key);
        expectToHear(parts);
    }

    ApplicationStage stage;
    std::unique_ptr<ScreenReader> reader;
    std::unique_ptr<RunningGlidemap> glidemap;
};

TEST_F(ScreenReaderTest, ReadsTheWindowWhenItOpens) {
    open();
    expectToHearTheOpenedWindow({"Glidemap", "Launch at Login check box not checked"});
    pressAndExpectToHear("Tab", {"Language", "combo box", "English"});
    pressAndExpectToHear("Tab", {"Enabled check box checked"});
    pressAndExpectToHear("Tab", {"Add Binding", "button"});
}

TEST_F(ScreenReaderTest, ReadsARowAndItsState) {
    open();
    expectToHearTheOpenedWindow({"Launch at Login"});
    const std::string row = "Draw Circle (any direction), Lock Screen, Global";
    pressAndExpectToHear("Shift+Tab", {"Bindings", row});
    pressAndExpectToHear("Space", {row + ", off"});
    pressAndExpectToHear("Space", {row});
    pressAndExpectToHear("Right", {"Enable Draw Circle (any direction) check box checked"});
    pressAndExpectToHear("Space", {"not checked"});
}

TEST_F(ScreenReaderTest, ReadsTheEditorAndARecordedShortcut) {
    open();
    expectToHearTheOpenedWindow({"Launch at Login"});
    pressAndExpectToHear("Ctrl+N", {"Add Binding dialog", "Trackpad gesture", "combo box",
                                    "Draw Circle (any direction)"});
    pressAndExpectToHear("Tab", {"Perform action", "combo box", "Keyboard Shortcut"});
    pressAndExpectToHear("Down", {"Lock Screen"});
    pressAndExpectToHear("Up", {"Keyboard Shortcut"});
    pressAndExpectToHear("Tab", {"Shortcut Click to record", "button"});
    pressAndExpectToHear("Space", {"Press a shortcut…"});
    pressAndExpectToHear("Ctrl+Shift+K", {"Ctrl Shift K"});
}

TEST_F(ScreenReaderTest, ReadsAnAlert) {
    auto command = stage.command();
    command.environment["XDG_RUNTIME_DIR"] = "/dev/null"; // the lock file cannot be created here
    open(command);
    expectToHear({"Glidemap could not start", "OK", "button"});
}

} // namespace
} // namespace glidemap::test

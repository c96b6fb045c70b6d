#include "desktops/fake_window_listener.h"
#include "desktops/listening.h"
#include "desktops/scoped_environment.h"
#include "desktops/sway.h"
#include "desktops/window.h"
#include "platform/linux/windows/wlr/wlr_window_backend.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>

namespace glidemap {

namespace {

using Listening = test::Listening<WlrWindowBackend>;
using test::FakeWindowListener;
using test::ScopedEnvironment;
using test::Sway;
using test::Window;

class SwayWindowsTest : public testing::Test {
protected:
    Sway sway;
    ScopedEnvironment here{sway.environment()};
    FakeWindowListener reported;

    Window open(const std::string& appID, const std::string& title = "Title") {
        return Window(sway.environment(), appID, title);
    }
};

TEST_F(SwayWindowsTest, ReportsAnEmptyDesktopImmediately) {
    const Listening listening(reported);
    EXPECT_TRUE(listening.started);
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(SwayWindowsTest, ReportsOpenWindowsImmediately) {
    Window first = open("org.example.First");
    Window second = open("second");
    const Listening listening(reported);
    // wlroots lists the newest window first.
    reported.expectReported({"windows: second, org.example.First", "active: second"});
}

TEST_F(SwayWindowsTest, ReportsFocusChangesWhenWindowsOpenSwitchAndClose) {
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    Window first = open("first");
    reported.expectReported({"windows: first", "active: first"});
    Window second = open("second");
    reported.expectReported({"windows: first, second", "active: second"});
    sway.command("[app_id=first] focus");
    reported.expectReported({"active: first"});
    sway.command("[app_id=second] focus");
    reported.expectReported({"active: second"});
    first.close();
    reported.expectReported({"windows: second"});
    second.close();
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(SwayWindowsTest, FocusChangeWithinOneApplicationIsNotReported) {
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    Window first = open("same");
    reported.expectReported({"windows: same", "active: same"});
    Window second = open("same");
    reported.expectReported({"windows: same, same"});
    second.close();
    reported.expectReported({"windows: same"});
}

TEST_F(SwayWindowsTest, EmptyWorkspaceHasNoActiveWindow) {
    Window window = open("only");
    const Listening listening(reported);
    reported.expectReported({"windows: only", "active: only"});
    sway.command("workspace 2");
    reported.expectReported({"active: none"});
    sway.command("workspace 1");
    reported.expectReported({"active: only"});
}

TEST_F(SwayWindowsTest, ReportsOnlyAppIDAndTitleOfAWindow) {
    Window window = open("org.example.Editor", "A text — Editor");
    const Listening listening(reported);
    reported.expectReported({"windows: org.example.Editor", "active: org.example.Editor"});
    EXPECT_THAT(reported.windows(),
                testing::ElementsAre(
                    WindowIdentity{"org.example.Editor", "", "A text — Editor", std::nullopt}));
}

TEST_F(SwayWindowsTest, DoesNotReportATitleChange) {
    Window window = open("editor", "one");
    const Listening listening(reported);
    reported.expectReported({"windows: editor", "active: editor"});
    window.setTitle("two");
    // A report of the new title would arrive before the report of `other`.
    Window other = open("other");
    reported.expectReported({"windows: editor, other", "active: other"});
}

TEST_F(SwayWindowsTest, ReportsATitleChangeOfAWindowWithoutAnAppID) {
    FakeWindowListener titles([](const WindowIdentity& window) { return window.title; });
    Window window = open("", "one");
    const Listening listening(titles);
    titles.expectReported({"windows: one", "active: one"});
    window.setTitle("two");
    titles.expectReported({"windows: two", "active: two"});
}

TEST_F(SwayWindowsTest, ReportsNoWindowsAfterTheCompositorExits) {
    Window window = open("lost");
    const Listening listening(reported);
    reported.expectReported({"windows: lost", "active: lost"});
    sway.kill();
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(SwayWindowsTest, DestroyedBackendReportsNothing) {
    Window window = open("one");
    Listening listening(reported);
    reported.expectReported({"windows: one", "active: one"});
    listening.end();
    window.close();
    sway.command("nop"); // sway replies after it has sent the window's events
    listening.settle();
    reported.expectReported({});
}

} // namespace

} // namespace glidemap

#include "desktops/listening.h"
#include "desktops/recording_window_listener.h"
#include "desktops/scoped_environment.h"
#include "desktops/sway.h"
#include "desktops/window.h"
#include "platform/linux/windows/wlr_window_backend.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>

namespace glidemap {

namespace {

using Listening = desktops::Listening<WlrWindowBackend>;
using desktops::RecordingWindowListener;
using desktops::ScopedEnvironment;
using desktops::Sway;
using desktops::Window;

class OnSway : public testing::Test {
protected:
    Sway sway;
    ScopedEnvironment here{sway.environment()};
    RecordingWindowListener told;

    Window open(const std::string& appID, const std::string& title = "Title") {
        return Window(sway.environment(), appID, title);
    }
};

TEST_F(OnSway, DesktopWithoutWindowsIsReportedAtOnce) {
    const Listening listening(told);
    EXPECT_TRUE(listening.started);
    told.expectTold({"windows:", "active: none"});
}

TEST_F(OnSway, OpenWindowsAreReportedAtOnce) {
    Window first = open("org.example.First");
    Window second = open("second");
    const Listening listening(told);
    // wlroots lists the newest window first.
    told.expectTold({"windows: second, org.example.First", "active: second"});
}

TEST_F(OnSway, FocusFollowsOpeningSwitchingAndClosing) {
    const Listening listening(told);
    told.expectTold({"windows:", "active: none"});
    Window first = open("first");
    told.expectTold({"windows: first", "active: first"});
    Window second = open("second");
    told.expectTold({"windows: first, second", "active: second"});
    sway.command("[app_id=first] focus");
    told.expectTold({"active: first"});
    sway.command("[app_id=second] focus");
    told.expectTold({"active: second"});
    first.close();
    told.expectTold({"windows: second"});
    second.close();
    told.expectTold({"windows:", "active: none"});
}

TEST_F(OnSway, TwoWindowsOfOneProgramAreOneApplicationToTheListener) {
    const Listening listening(told);
    told.expectTold({"windows:", "active: none"});
    Window first = open("same");
    told.expectTold({"windows: same", "active: same"});
    Window second = open("same");
    told.expectTold({"windows: same, same"});
    second.close();
    told.expectTold({"windows: same"});
}

TEST_F(OnSway, EmptyWorkspaceHasNoActiveWindow) {
    Window window = open("only");
    const Listening listening(told);
    told.expectTold({"windows: only", "active: only"});
    sway.command("workspace 2");
    told.expectTold({"active: none"});
    sway.command("workspace 1");
    told.expectTold({"active: only"});
}

TEST_F(OnSway, WindowIsReportedWithAppIDAndTitleOnly) {
    Window window = open("org.example.Editor", "A text — Editor");
    const Listening listening(told);
    told.expectTold({"windows: org.example.Editor", "active: org.example.Editor"});
    EXPECT_THAT(told.windows(), testing::ElementsAre(WindowIdentity{
                                    "org.example.Editor", "", "A text — Editor", std::nullopt}));
}

TEST_F(OnSway, TitleChangeAloneIsNotReported) {
    Window window = open("editor", "one");
    const Listening listening(told);
    told.expectTold({"windows: editor", "active: editor"});
    window.setTitle("two");
    Window other = open("other"); // a title report would come before this one
    told.expectTold({"windows: editor, other", "active: other"});
}

TEST_F(OnSway, TitleChangeIsReportedWithoutAnAppID) {
    RecordingWindowListener titles([](const WindowIdentity& window) { return window.title; });
    Window window = open("", "one");
    const Listening listening(titles);
    titles.expectTold({"windows: one", "active: one"});
    window.setTitle("two");
    titles.expectTold({"windows: two", "active: two"});
}

TEST_F(OnSway, CompositorThatDiesHasNoWindows) {
    Window window = open("lost");
    const Listening listening(told);
    told.expectTold({"windows: lost", "active: lost"});
    sway.kill();
    told.expectTold({"windows:", "active: none"});
}

TEST_F(OnSway, DestroyedBackendReportsNothing) {
    Window window = open("one");
    Listening listening(told);
    told.expectTold({"windows: one", "active: one"});
    listening.end();
    window.close();
    sway.command("nop"); // replied after the window's events
    listening.settle();
    told.expectTold({});
}

} // namespace

} // namespace glidemap

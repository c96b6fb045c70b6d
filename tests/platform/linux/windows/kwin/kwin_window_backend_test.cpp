#include "desktops/fake_window_listener.h"
#include "desktops/listening.h"
#include "desktops/private_bus.h"
#include "desktops/runtime_folder.h"
#include "desktops/scoped_environment.h"
#include "fake_kwin.h"
#include "platform/linux/windows/kwin/kwin_window_backend.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace glidemap {

namespace {

using Listening = test::Listening<KWinWindowBackend>;
using test::FakeWindowListener;
using test::ScopedEnvironment;
using testing::HasSubstr;

constexpr const char* oneWindow =
    R"({"windows":[{"desktopFile":"kate"}],"active":{"desktopFile":"kate"}})";

class KWinWindows : public testing::Test {
protected:
    test::RuntimeFolder folder;
    test::PrivateBus bus;
    ScopedEnvironment here{{{"DBUS_SESSION_BUS_ADDRESS", bus.address()},
                            {"XDG_CURRENT_DESKTOP", "KDE"},
                            {"XDG_RUNTIME_DIR", folder.path()}}};
    FakeWindowListener reported;
};

TEST_F(KWinWindows, ScriptRunsInPlasma6) {
    FakeKWin kwin(bus.address(), {});
    const Listening listening(reported);
    kwin.expectCalls(FakeKWin::loading);
    kwin.report(oneWindow);
    reported.expectReported({"windows: kate", "active: kate"});
}

TEST_F(KWinWindows, ScriptRunsInPlasma5) {
    FakeKWin kwin(bus.address(), {.scriptFolder = "/"});
    const Listening listening(reported);
    kwin.expectCalls(
        {"unloadScript /Scripting", "loadScript /Scripting", "run /7", "start /Scripting"});
    kwin.report(oneWindow);
    reported.expectReported({"windows: kate", "active: kate"});
}

TEST_F(KWinWindows, OtherUsersCannotReadOrReplaceTheScript) {
    FakeKWin kwin(bus.address(), {});
    const Listening listening(reported);
    kwin.expectCalls(FakeKWin::loading);
    kwin.report(oneWindow); // after this call, KWin has certainly read the script
    EXPECT_THAT(kwin.script(), HasSubstr("org.glidemap.KWinWindows"));
    EXPECT_EQ(kwin.file().parent_path(), folder.path());
    EXPECT_EQ(kwin.permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(KWinWindows, LoadsTheScriptWhenKWinHasFinishedStarting) {
    FakeKWin kwin(bus.address(), {.isStarting = true});
    const Listening listening(reported);
    kwin.sendSignal();
    kwin.expectCalls({});
    kwin.finishStarting();
    kwin.expectCalls(FakeKWin::loading);
    kwin.sendSignal(); // causes no further call
    kwin.report(oneWindow);
    reported.expectReported({"windows: kate", "active: kate"});
    kwin.expectCalls({});
}

TEST_F(KWinWindows, ReportsNoWindowsIfKWinRejectsTheScript) {
    const FakeKWin::Nature natures[] = {
        {.id = -1},
        {.runs = false},
        {.scriptFolder = "/Somewhere/Else"},
    };
    for (const FakeKWin::Nature& nature : natures) {
        FakeKWin kwin(bus.address(), nature);
        FakeWindowListener none;
        const Listening listening(none);
        none.expectReported({"windows:", "active: none"});
        EXPECT_FALSE(std::filesystem::exists(kwin.file()));
    }
}

TEST_F(KWinWindows, DestructorUnloadsTheScript) {
    FakeKWin kwin(bus.address(), {});
    {
        const Listening listening(reported);
        kwin.expectCalls(FakeKWin::loading);
    }
    kwin.expectCalls({"unloadScript /Scripting"});
    EXPECT_FALSE(std::filesystem::exists(kwin.file()));
}

TEST_F(KWinWindows, HungKWinBlocksNoThread) {
    FakeKWin kwin(bus.address(), {.isStuck = true});
    {
        const Listening listening(reported);
        EXPECT_TRUE(listening.started);
        kwin.expectCalls({"unloadScript /Scripting"});
    }
    reported.expectReported({});
}

TEST_F(KWinWindows, InvalidReportsAreIgnored) {
    FakeKWin kwin(bus.address(), {});
    const Listening listening(reported);
    kwin.expectCalls(FakeKWin::loading);
    kwin.report("{");
    kwin.report(R"({"active":{"desktopFile":"kate"}})");
    kwin.report(oneWindow);
    reported.expectReported({"windows: kate", "active: kate"});
}

TEST(KWinWindowBackend, DoesNotStartIfKWinIsNeitherRunningNorExpected) {
    const test::PrivateBus bus;
    FakeWindowListener reported;
    for (const char* desktop : {"", "GNOME", "XKDE", "ubuntu:GNOME"}) {
        const ScopedEnvironment here{
            {{"DBUS_SESSION_BUS_ADDRESS", bus.address()}, {"XDG_CURRENT_DESKTOP", desktop}}};
        EXPECT_FALSE(Listening(reported).started) << desktop;
    }
    reported.expectReported({});
}

TEST(KWinWindowBackend, StartsInAPlasmaSession) {
    const test::PrivateBus bus;
    const ScopedEnvironment here{
        {{"DBUS_SESSION_BUS_ADDRESS", bus.address()}, {"XDG_CURRENT_DESKTOP", "other:KDE"}}};
    FakeWindowListener reported;
    const Listening listening(reported);
    EXPECT_TRUE(listening.started);
    reported.expectReported({"windows:", "active: none"});
}

TEST(KWinWindowBackend, DoesNotStartWithoutABus) {
    const test::RuntimeFolder folder;
    const ScopedEnvironment here{
        {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (folder.path() / "none").string()},
         {"XDG_CURRENT_DESKTOP", "KDE"}}};
    FakeWindowListener reported;
    EXPECT_FALSE(Listening(reported).started);
    reported.expectReported({});
}

} // namespace

} // namespace glidemap

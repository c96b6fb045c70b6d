#include "cocoa_test.h"
#include "doubles/distributed.h"
#include "doubles/preferences.h"
#include "platform/macos/session/macos_user_session.h"

#include <memory>
#include <optional>

namespace glidemap {
namespace {

using test::postDistributed;
using test::postNotice;
using testing::AllOf;
using testing::Each;
using testing::HasSubstr;
using testing::SizeIs;

struct State {
    bool isActive = true;
    bool isLocked = false;
    bool isAsleep = false;

    friend bool operator==(const State&, const State&) = default;
};

State stateOf(const MacosUserSession& session) {
    return {session.isActive(), session.isLocked(), session.isAsleep()};
}

// The center must exist before the fixture counts living objects.
struct SharedCenter {
    SharedCenter() { test::makeDistributedCenter(); }
};

class MacosUserSessionStartTest : private SharedCenter, public CocoaTest {
protected:
    MacosUserSessionStartTest() { test::preferences() = {}; } // also sets makesTexts to true
};

class MacosUserSessionTest : public MacosUserSessionStartTest {
protected:
    // Posts a notification as the system does, and returns the number of resulting changes.
    int changesAfter(void (*post)(const char*), const char* name) {
        const int before = changes;
        post(name);
        return changes - before;
    }

    int changes = 0;
    MacosUserSession session;
    Subscription subscription = session.changes().subscribe({}, [this] { ++changes; });
};

TEST_F(MacosUserSessionTest, IsActiveUnlockedAndAwakeInitially) {
    EXPECT_EQ(stateOf(session), State());
}

TEST_F(MacosUserSessionTest, FollowsUserSwitching) {
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceSessionDidResignActiveNotification"), 1);
    EXPECT_EQ(stateOf(session), (State{.isActive = false}));
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceSessionDidBecomeActiveNotification"), 1);
    EXPECT_EQ(stateOf(session), State());
}

TEST_F(MacosUserSessionTest, FollowsTheScreenLockWhileAnotherProgramIsFrontmost) {
    EXPECT_EQ(changesAfter(postDistributed, "com.apple.screenIsLocked"), 1);
    EXPECT_EQ(stateOf(session), (State{.isLocked = true}));
    EXPECT_EQ(changesAfter(postDistributed, "com.apple.screenIsUnlocked"), 1);
    EXPECT_EQ(stateOf(session), State());
}

TEST_F(MacosUserSessionTest, FollowsSleep) {
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceWillSleepNotification"), 1);
    EXPECT_EQ(stateOf(session), (State{.isAsleep = true}));
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceDidWakeNotification"), 1);
    EXPECT_EQ(stateOf(session), State());
}

TEST_F(MacosUserSessionTest, ScreenWakeNotificationEndsSleep) {
    postNotice("NSWorkspaceWillSleepNotification");
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceScreensDidWakeNotification"), 1);
    EXPECT_EQ(stateOf(session), State());
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceDidWakeNotification"), 0);
}

TEST_F(MacosUserSessionTest, ActiveLockedAndAsleepStatesAreIndependent) {
    postDistributed("com.apple.screenIsLocked");
    postNotice("NSWorkspaceWillSleepNotification");
    postNotice("NSWorkspaceSessionDidResignActiveNotification");
    EXPECT_EQ(stateOf(session), (State{.isActive = false, .isLocked = true, .isAsleep = true}));
    postNotice("NSWorkspaceDidWakeNotification");
    EXPECT_EQ(stateOf(session), (State{.isActive = false, .isLocked = true}));
}

TEST_F(MacosUserSessionTest, RepeatedNotificationsReportNoChange) {
    postDistributed("com.apple.screenIsLocked");
    EXPECT_EQ(changesAfter(postDistributed, "com.apple.screenIsLocked"), 0);
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceSessionDidBecomeActiveNotification"), 0);
}

TEST_F(MacosUserSessionTest, ScreenSaverAndDisplaySleepChangeNothing) {
    EXPECT_EQ(changesAfter(postDistributed, "com.apple.screensaver.didstart"), 0);
    EXPECT_EQ(changesAfter(postNotice, "NSWorkspaceScreensDidSleepNotification"), 0);
    EXPECT_EQ(stateOf(session), State());
}

TEST_F(MacosUserSessionStartTest, ReadsTheInitialStateFromTheWindowServer) {
    test::quartz().isOnConsole = false;
    EXPECT_EQ(stateOf(MacosUserSession()), (State{.isActive = false}));
    test::quartz() = {};
    test::quartz().isLocked = true;
    EXPECT_EQ(stateOf(MacosUserSession()), (State{.isLocked = true}));
}

TEST_F(MacosUserSessionStartTest, SessionIsActiveAndUnlockedWithoutAWindowServer) {
    test::quartz().isOnConsole = false;
    test::quartz().isLocked = true;
    test::quartz().hasSession = false;
    EXPECT_EQ(stateOf(MacosUserSession()), State());
}

TEST_F(MacosUserSessionStartTest, DestructionRemovesTheObservers) {
    auto session = std::make_unique<MacosUserSession>();
    const Lines added = journal();
    session.reset();
    const Lines removed = journal();
    EXPECT_THAT(added, SizeIs(8)) << "seven observers, and one query";
    EXPECT_THAT(removed, AllOf(SizeIs(7), Each(HasSubstr("remove"))));
}

} // namespace
} // namespace glidemap

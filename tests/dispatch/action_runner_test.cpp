#include "dispatch/action_runner.h"
#include "kit/fake_key_event_poster.h"
#include "kit/fake_screen_lock.h"
#include "kit/fake_user_session.h"
#include "kit/fake_workspace.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <memory>

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Post = test::FakeKeyEventPoster::Post;

const Post lockShortcut = {{12, true, 0x140000}, {12, false, 0x140000}};

class ActionRunnerTest : public testing::Test {
protected:
    void expectNothingElseThan(std::size_t posts, int locks, std::size_t openings) const {
        EXPECT_EQ(keyEvents->posts.size(), posts);
        EXPECT_EQ(lock->timesLocked, locks);
        EXPECT_EQ(workspace->opened.size(), openings);
    }

    std::shared_ptr<test::FakeWorkspace> workspace = std::make_shared<test::FakeWorkspace>();
    std::shared_ptr<test::FakeKeyEventPoster> keyEvents =
        std::make_shared<test::FakeKeyEventPoster>();
    std::shared_ptr<test::FakeScreenLock> lock = std::make_shared<test::FakeScreenLock>();
    std::shared_ptr<test::FakeUserSession> session = std::make_shared<test::FakeUserSession>();
    std::unique_ptr<ActionRunner> runner = std::make_unique<ActionRunner>(ActionRunner::Ports{
        .workspace = workspace, .keyEvents = keyEvents, .screenLock = lock, .session = session});
};

TEST_F(ActionRunnerTest, ShortcutPostsKeyDownAndUpWithExactlyItsModifiersInOneCall) {
    const std::uint64_t masks[] = {0, modifier::shift, modifier::option | modifier::command,
                                   std::uint64_t{1} << 63 | 1,
                                   std::numeric_limits<std::uint64_t>::max()};
    for (const std::uint64_t mask : masks) {
        keyEvents->posts.clear();
        runner->perform(KeyShortcut{124, mask});
        EXPECT_THAT(keyEvents->posts, ElementsAre(Post{{124, true, mask}, {124, false, mask}}));
    }
    expectNothingElseThan(1, 0, 0);
}

TEST_F(ActionRunnerTest, ShortcutWithoutModifiersPostsPlainDownAndUp) {
    runner->perform(KeyShortcut{0, 0});
    EXPECT_THAT(keyEvents->posts, ElementsAre(Post{{0, true, 0}, {0, false, 0}}));
}

TEST_F(ActionRunnerTest, LocksTheScreenWithTheSystemLock) {
    runner->perform(LockScreen{});
    expectNothingElseThan(0, 1, 0);
}

TEST_F(ActionRunnerTest, LooksUpTheSystemLockOnce) {
    EXPECT_EQ(lock->timesLookedFor, 0);
    for (int count = 0; count < 3; ++count) {
        runner->perform(LockScreen{});
    }
    EXPECT_EQ(lock->timesLookedFor, 1);
    expectNothingElseThan(0, 3, 0);
}

TEST_F(ActionRunnerTest, TypesControlCommandQWithoutASystemLock) {
    lock->exists = false;
    runner->perform(LockScreen{});
    runner->perform(LockScreen{});
    EXPECT_THAT(keyEvents->posts, ElementsAre(lockShortcut, lockShortcut));
    EXPECT_EQ(lock->timesLookedFor, 1);
    expectNothingElseThan(2, 0, 0);
}

TEST_F(ActionRunnerTest, TypesControlCommandQWhenTheSystemRefusesToLock) {
    runner->perform(LockScreen{});
    EXPECT_THAT(keyEvents->posts, IsEmpty());
    lock->refuse();
    EXPECT_THAT(keyEvents->posts, ElementsAre(lockShortcut));
}

TEST_F(ActionRunnerTest, OnlyALockActionRunsOnALockedScreen) {
    session->setLocked(true);
    workspace->urls["org.example.Editor"] = "file:///editor";
    runner->perform(KeyShortcut{124, 0});
    runner->perform(MissionControl{});
    runner->perform(LaunchApp{"org.example.Editor", "Editor"});
    expectNothingElseThan(0, 0, 0);
    runner->perform(LockScreen{});
    expectNothingElseThan(0, 1, 0);
}

TEST_F(ActionRunnerTest, LockShortcutIsNotTypedOnALockedScreen) {
    runner->perform(LockScreen{});
    session->setLocked(true);
    lock->refuse();
    expectNothingElseThan(0, 1, 0);
}

TEST_F(ActionRunnerTest, TypesNothingOnALockedScreenWithoutASystemLock) {
    lock->exists = false;
    session->setLocked(true);
    runner->perform(LockScreen{});
    expectNothingElseThan(0, 0, 0);
}

TEST_F(ActionRunnerTest, LockRefusalTypesTheShortcutEvenAfterTheRunnerIsDestroyed) {
    runner->perform(LockScreen{});
    runner.reset();
    lock->refuse();
    EXPECT_THAT(keyEvents->posts, ElementsAre(lockShortcut)); // the poster still exists
    const std::weak_ptr<KeyEventPoster> poster = keyEvents;
    keyEvents.reset();
    EXPECT_TRUE(poster.expired());
    lock->refuse();
}

TEST_F(ActionRunnerTest, OpensMissionControlThroughTheWorkspace) {
    runner->perform(MissionControl{});
    EXPECT_THAT(workspace->opened, ElementsAre("mission control"));
    expectNothingElseThan(0, 0, 1);
}

TEST_F(ActionRunnerTest, ApplicationIsLaunchedByIdentifierNotByName) {
    workspace->urls = {{"org.example.Editor", "file:///applications/editor"},
                       {"Editor", "file:///wrong"}};
    runner->perform(LaunchApp{"org.example.Editor", "Editor"});
    EXPECT_THAT(workspace->opened, ElementsAre("application file:///applications/editor"));
    expectNothingElseThan(0, 0, 1);
}

TEST_F(ActionRunnerTest, UnknownIdentifierLaunchesNothing) {
    runner->perform(LaunchApp{"org.example.Missing", "Missing"});
    runner->launchApp("");
    expectNothingElseThan(0, 0, 0);
}

TEST_F(ActionRunnerTest, LaunchAppWorksWithoutABinding) {
    workspace->urls = {{"org.example.Editor", "file:///applications/editor"}};
    runner->launchApp("org.example.Editor");
    EXPECT_THAT(workspace->opened, ElementsAre("application file:///applications/editor"));
}

} // namespace
} // namespace glidemap

#include "dispatch/gesture_dispatcher.h"
#include "dispatch_stage.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <string>

namespace glidemap::test {
namespace {

using enum GestureType;
using std::nullopt;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

const BindingScope inEditor = AppScope{editorID, editorName};

TEST(GestureDispatcherTest, RunsAndLogsAnActionInTwoMainQueueTasks) {
    DispatchStage stage({typing(1, twoFingerTap)});
    stage.bringEditorForward();
    EXPECT_TRUE(stage.dispatcher->handle(twoFingerTap, true));
    EXPECT_EQ(stage.mainQueue->waiting(), 2U);
    EXPECT_THAT(stage.typed(), IsEmpty());
    EXPECT_THAT(stage.logged(), IsEmpty());

    stage.mainQueue->runNext();
    EXPECT_THAT(stage.typed(), ElementsAre(1));
    EXPECT_THAT(stage.logged(), IsEmpty());

    stage.mainQueue->runNext();
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerTap, "Shortcut S", editorName}));
    EXPECT_EQ(stage.mainQueue->waiting(), 0U);
}

TEST(GestureDispatcherTest, UnboundGestureIsLoggedWithoutAnAction) {
    DispatchStage stage({typing(1, threeFingerTap)});
    EXPECT_FALSE(stage.dispatcher->handle(twoFingerTap, true));
    EXPECT_EQ(stage.mainQueue->waiting(), 1U);
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerTap, nullopt, nullopt}));
    EXPECT_THAT(stage.typed(), IsEmpty());
}

TEST(GestureDispatcherTest, BoundGestureIsLoggedWithoutRunningItsActionIfExecutionIsDisabled) {
    DispatchStage stage({typing(1, twoFingerTap)});
    EXPECT_TRUE(stage.dispatcher->handle(twoFingerTap, false));
    EXPECT_EQ(stage.mainQueue->waiting(), 1U);
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerTap, "Shortcut S", nullopt}));
    EXPECT_THAT(stage.typed(), IsEmpty());
}

TEST(GestureDispatcherTest, ConsumedClickRunsAndIsLoggedInOneTask) {
    DispatchStage stage({typing(1, twoFingerClick)});
    stage.bringEditorForward();
    EXPECT_TRUE(stage.dispatcher->handleClickGesture(twoFingerClick));
    EXPECT_EQ(stage.mainQueue->waiting(), 1U);
    EXPECT_THAT(stage.typed(), IsEmpty());

    stage.mainQueue->runNext();
    EXPECT_THAT(stage.typed(), ElementsAre(1));
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerClick, "Shortcut S", editorName}));
}

TEST(GestureDispatcherTest, ClickIsLoggedAfterItsActionHasRun) {
    DispatchStage stage({typing(1, twoFingerClick)});
    std::vector<std::uint16_t> typedBefore;
    const Subscription subscription =
        stage.dispatcher->changes().subscribe([&] { typedBefore = stage.typed(); });
    stage.dispatcher->handleClickGesture(twoFingerClick);
    stage.mainQueue->runAll();
    EXPECT_THAT(typedBefore, ElementsAre(1));
}

TEST(GestureDispatcherTest, UnboundClickIsNeitherConsumedNorLogged) {
    DispatchStage stage({typing(1, threeFingerClick)});
    EXPECT_FALSE(stage.dispatcher->handleClickGesture(twoFingerClick));
    EXPECT_EQ(stage.mainQueue->waiting(), 0U);
    EXPECT_THAT(stage.logged(), IsEmpty());
}

TEST(GestureDispatcherTest, HandlesAndLogsNothingWhileTheMasterSwitchIsOff) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerClick)});
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_FALSE(stage.dispatcher->handle(twoFingerTap, true));
    EXPECT_FALSE(stage.dispatcher->handle(twoFingerTap, false));
    EXPECT_FALSE(stage.dispatcher->handle(pinchIn, true));
    EXPECT_FALSE(stage.dispatcher->handleClickGesture(twoFingerClick));
    EXPECT_EQ(stage.mainQueue->waiting(), 0U);
    EXPECT_EQ(stage.workspace->timesAskedForFrontmost, 0);

    stage.dispatcher->setMasterEnabled(true);
    EXPECT_TRUE(stage.dispatcher->handle(twoFingerTap, true));
    EXPECT_TRUE(stage.dispatcher->handleClickGesture(twoFingerClick));
}

TEST(GestureDispatcherTest, ClicksPassAndLateGesturesAreDroppedWhileTheMainThreadHangs) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerClick)});
    EXPECT_TRUE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.uptime += 999ms;
    EXPECT_TRUE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.uptime += 1ms;
    EXPECT_FALSE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.uptime += 10s;
    EXPECT_FALSE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.dispatcher->handle(twoFingerTap, true);
    stage.uptime += 3s;

    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), IsEmpty());
    EXPECT_THAT(stage.logged(), IsEmpty());
    EXPECT_TRUE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), ElementsAre(2));
}

TEST(GestureDispatcherTest, ClicksPassWhileAGestureWaitsForAHungMainThread) {
    DispatchStage stage({typing(2, twoFingerClick)});
    stage.dispatcher->handle(twoFingerTap, true); // unbound, but still logged
    stage.uptime += 1s;
    EXPECT_FALSE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.uptime += 1h;
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerTap, nullopt, nullopt}));
}

TEST(GestureDispatcherTest, RunsAndLogsNothingOnALockedScreen) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerClick),
                         binding(threeFingerTap, LaunchApp{editorID, editorName}),
                         binding(fourFingerTap, MissionControl{})});
    stage.workspace->urls[editorID] = "file:///editor";
    stage.session->setLocked(true);
    for (const GestureType gesture : {twoFingerTap, threeFingerTap, fourFingerTap, pinchIn}) {
        EXPECT_FALSE(stage.dispatcher->handle(gesture, true));
    }
    EXPECT_FALSE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.mainQueue->runAll();
    stage.session->setLocked(false);
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), IsEmpty());
    EXPECT_THAT(stage.workspace->opened, IsEmpty());
    EXPECT_THAT(stage.logged(), IsEmpty());

    EXPECT_TRUE(stage.dispatcher->handle(twoFingerTap, true));
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), ElementsAre(1));
}

TEST(GestureDispatcherTest, LockActionRunsOnALockedScreenWithoutLogging) {
    DispatchStage stage(
        {binding(twoFingerTap, LockScreen{}), binding(twoFingerClick, LockScreen{})});
    stage.lock->exists = true;
    stage.session->setLocked(true);
    EXPECT_TRUE(stage.dispatcher->handle(twoFingerTap, true));
    EXPECT_TRUE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.mainQueue->runAll();
    EXPECT_EQ(stage.lock->timesLocked, 2);
    EXPECT_THAT(stage.logged(), IsEmpty());
}

TEST(GestureDispatcherTest, ActionsQueuedBeforeTheScreenLocksDoNotRunOnTheLockedScreen) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerClick)});
    EXPECT_TRUE(stage.dispatcher->handle(twoFingerTap, true));
    EXPECT_TRUE(stage.dispatcher->handleClickGesture(twoFingerClick));
    stage.session->setLocked(true);
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), IsEmpty());
    EXPECT_THAT(stage.logged(), IsEmpty());
}

TEST(GestureDispatcherTest, GesturesAcceptedBeforeTheMasterSwitchIsTurnedOffStillRun) {
    DispatchStage stage({typing(1, twoFingerTap)});
    stage.dispatcher->handle(twoFingerTap, true);
    stage.dispatcher->setMasterEnabled(false);
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), ElementsAre(1));
}

TEST(GestureDispatcherTest, QueriesTheFrontmostApplicationOncePerGesture) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerClick)});
    stage.dispatcher->handle(twoFingerTap, true);
    EXPECT_EQ(stage.workspace->timesAskedForFrontmost, 1);
    stage.dispatcher->handleClickGesture(twoFingerClick);
    EXPECT_EQ(stage.workspace->timesAskedForFrontmost, 2);
    stage.mainQueue->runAll();
    EXPECT_EQ(stage.workspace->timesAskedForFrontmost, 2);
}

TEST(GestureDispatcherTest, UsesTheApplicationThatWasFrontmostWhenTheGestureArrived) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerTap, inEditor),
                         typing(3, twoFingerClick, inEditor)});
    stage.bringEditorForward();
    stage.dispatcher->handle(twoFingerTap, true);
    stage.dispatcher->handleClickGesture(twoFingerClick);
    stage.workspace->setFrontmost({"org.example.Other", "Other"});
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), ElementsAre(2, 3));
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerClick, "Shortcut F", editorName},
                                            Logged{twoFingerTap, "Shortcut D", editorName}));
}

TEST(GestureDispatcherTest, FrontmostApplicationMayLackAnIdentifierOrAName) {
    const Application rows[] = {
        {nullopt, nullopt}, {editorID, nullopt}, {nullopt, editorName}, {editorID, editorName}};
    for (const Application& row : rows) {
        DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerTap, inEditor)});
        stage.workspace->setFrontmost(row);
        EXPECT_EQ(stage.dispatcher->frontmost(), row);
        stage.dispatcher->handle(twoFingerTap, true);
        stage.mainQueue->runAll();
        EXPECT_THAT(stage.typed(), ElementsAre(row.bundleID ? 2 : 1));
        EXPECT_THAT(stage.logged(),
                    ElementsAre(Logged{twoFingerTap, row.bundleID ? "Shortcut D" : "Shortcut S",
                                       row.name}));
    }
}

struct CircleRow {
    std::string fact;
    BindingList bindings;
    GestureType drawn;
    std::optional<std::uint16_t> key; // the typed key; nullopt if no key is typed
};

TEST(GestureDispatcherTest, CircleFallsBackToTheBindingForAnyDirection) {
    const CircleRow rows[] = {
        {"any runs for clockwise", {typing(1, drawCircle)}, drawCircleClockwise, 1},
        {"any runs for counterclockwise", {typing(1, drawCircle)}, drawCircleCounterclockwise, 1},
        {"any runs for any", {typing(1, drawCircle)}, drawCircle, 1},
        {"a direction takes precedence over any, in any order",
         {typing(1, drawCircle), typing(2, drawCircleClockwise)},
         drawCircleClockwise,
         2},
        {"a direction never fires for the other",
         {typing(2, drawCircleClockwise)},
         drawCircleCounterclockwise,
         nullopt},
        {"a direction never fires for any", {typing(2, drawCircleClockwise)}, drawCircle, nullopt},
        {"a disabled direction falls back to any",
         {disabled(typing(2, drawCircleClockwise)), typing(1, drawCircle)},
         drawCircleClockwise,
         1},
        {"a direction for another application falls back to any",
         {typing(2, drawCircleClockwise, AppScope{"org.example.Other", "Other"}),
          typing(1, drawCircle)},
         drawCircleClockwise,
         1},
        {"a global direction takes precedence over any in this application",
         {typing(1, drawCircle, inEditor), typing(2, drawCircleClockwise)},
         drawCircleClockwise,
         2},
        {"any other gesture has no such fallback",
         {typing(1, drawCircle)},
         rotateClockwise,
         nullopt},
    };
    for (const CircleRow& row : rows) {
        SCOPED_TRACE(row.fact);
        DispatchStage stage(row.bindings);
        stage.bringEditorForward();
        EXPECT_EQ(stage.dispatcher->handle(row.drawn, true), row.key.has_value());
        stage.mainQueue->runAll();
        EXPECT_EQ(stage.typed(), row.key ? std::vector{*row.key} : std::vector<std::uint16_t>{});
        ASSERT_EQ(stage.logged().size(), 1U);
        EXPECT_EQ(stage.logged().front().gesture, row.drawn);
    }
}

TEST(GestureDispatcherTest, ResolvingABindingHasNoSideEffects) {
    const GestureBinding global = typing(1, twoFingerTap);
    const GestureBinding own = typing(2, twoFingerTap, inEditor);
    DispatchStage stage({global, own});
    EXPECT_EQ(*stage.dispatcher->resolveBinding(twoFingerTap, editorID), own);
    EXPECT_EQ(*stage.dispatcher->resolveBinding(twoFingerTap, nullopt), global);
    EXPECT_EQ(stage.dispatcher->resolveBinding(pinchIn, editorID), nullptr);
    EXPECT_EQ(stage.mainQueue->waiting(), 0U);
}

TEST(GestureDispatcherTest, MatchedBindingRunsEvenIfDeletedAfterwards) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerClick)});
    stage.dispatcher->handle(twoFingerTap, true);
    stage.dispatcher->handleClickGesture(twoFingerClick);
    stage.store->setBindings({});
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), ElementsAre(1, 2));
    EXPECT_FALSE(stage.dispatcher->handle(twoFingerTap, true));
}

TEST(GestureDispatcherTest, QueuedWorkDoesNothingAfterTheDispatcherIsDestroyed) {
    DispatchStage stage({typing(1, twoFingerTap), typing(2, twoFingerClick)});
    stage.dispatcher->handle(twoFingerTap, true);
    stage.dispatcher->handleClickGesture(twoFingerClick);
    const std::weak_ptr<GestureDispatcher> weakly = stage.dispatcher;
    stage.dispatcher.reset();
    EXPECT_TRUE(weakly.expired());
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.typed(), IsEmpty());
}

TEST(EventLogTest, KeepsTheTwentyNewestGesturesNewestFirst) {
    DispatchStage stage;
    const auto& all = allGestureTypes;
    std::vector<Logged> expected;
    for (std::size_t index = 0; index < 25; ++index) {
        stage.dispatcher->handle(all[index], true);
        stage.mainQueue->runAll();
        expected.insert(expected.begin(), Logged{all[index], nullopt, nullopt});
        EXPECT_EQ(stage.logged().size(), std::min<std::size_t>(index + 1, 20));
    }
    expected.resize(20);
    EXPECT_EQ(stage.logged(), expected);
}

TEST(EventLogTest, ClickRemovesTheOldestOfTwentyEntries) {
    DispatchStage stage({typing(1, twoFingerClick)});
    for (int count = 0; count < 20; ++count) {
        stage.dispatcher->handle(pinchIn, true);
    }
    stage.dispatcher->handleClickGesture(twoFingerClick);
    stage.mainQueue->runAll();
    EXPECT_EQ(stage.logged().size(), 20U);
    EXPECT_EQ(stage.logged().front(), (Logged{twoFingerClick, "Shortcut S", nullopt}));
    EXPECT_EQ(stage.logged().back(), (Logged{pinchIn, nullopt, nullopt}));
}

TEST(EventLogTest, EveryEntryHasAUniqueIdentifier) {
    DispatchStage stage({typing(1, twoFingerClick)});
    stage.dispatcher->handle(pinchIn, true);
    stage.dispatcher->handle(pinchIn, true);
    stage.dispatcher->handleClickGesture(twoFingerClick);
    stage.mainQueue->runAll();
    const auto& entries = stage.dispatcher->recentEvents();
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_NE(entries[0].id, entries[1].id);
    EXPECT_NE(entries[1].id, entries[2].id);
    EXPECT_NE(entries[0].id, entries[2].id);
}

TEST(EventLogTest, GestureIsDatedWhenItIsRecognisedAndClickWhenItsActionRuns) {
    DispatchStage stage({typing(1, twoFingerClick)});
    stage.now = WallTime(100s);
    stage.dispatcher->handle(pinchIn, true);
    stage.dispatcher->handleClickGesture(twoFingerClick);
    stage.now = WallTime(105s);
    stage.mainQueue->runAll();
    const auto& entries = stage.dispatcher->recentEvents();
    ASSERT_EQ(entries.size(), 2U);
    // Compares durations, because macOS 13.0 cannot print time points.
    EXPECT_EQ(entries[1].date.time_since_epoch(), 100s);
    EXPECT_EQ(entries[0].date.time_since_epoch(), 105s);
}

TEST(EventLogTest, DefaultClockIsTheSystemClock) {
    DispatchStage ports;
    const auto dispatcher = GestureDispatcher::create({.store = ports.store,
                                                       .defaults = ports.defaults,
                                                       .mainQueue = ports.mainQueue,
                                                       .workspace = ports.workspace,
                                                       .actionRunner = nullptr});
    const auto before = std::chrono::system_clock::now();
    dispatcher->handle(pinchIn, true);
    const auto after = std::chrono::system_clock::now();
    ports.mainQueue->runAll();
    ASSERT_EQ(dispatcher->recentEvents().size(), 1U);
    const auto date = dispatcher->recentEvents().front().date.time_since_epoch();
    EXPECT_GE(date, before.time_since_epoch());
    EXPECT_LE(date, after.time_since_epoch());
}

TEST(EventLogTest, EntryIsWrittenInTheCurrentLanguageAndNeverTranslated) {
    DispatchStage stage(
        {binding(twoFingerTap, LockScreen{}), binding(twoFingerClick, LockScreen{})});
    stage.dispatcher->handle(twoFingerTap, true);
    stage.lang.setCode("zh");
    stage.dispatcher->handle(twoFingerTap, true);
    stage.dispatcher->handleClickGesture(twoFingerClick);
    stage.lang.setCode("en");
    stage.mainQueue->runAll();
    stage.lang.setCode("zh");
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerClick, "Lock Screen", nullopt},
                                            Logged{twoFingerTap, "锁定屏幕", nullopt},
                                            Logged{twoFingerTap, "Lock Screen", nullopt}));
}

TEST(EventLogTest, HoldsTheDisplayTextOfEveryKindOfAction) {
    DispatchStage stage({
        binding(twoFingerTap, KeyShortcut{124, 0x180000}),
        binding(threeFingerTap, LockScreen{}),
        binding(fourFingerTap, MissionControl{}),
        binding(fiveFingerTap, LaunchApp{editorID, "My Editor"}),
    });
    for (const GestureType gesture : {twoFingerTap, threeFingerTap, fourFingerTap, fiveFingerTap}) {
        stage.dispatcher->handle(gesture, false);
    }
    stage.mainQueue->runAll();
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{fiveFingerTap, "Open My Editor", nullopt},
                                            Logged{fourFingerTap, "Mission Control", nullopt},
                                            Logged{threeFingerTap, "Lock Screen", nullopt},
                                            Logged{twoFingerTap, "Shortcut ⌥⌘→", nullopt}));
}

TEST(EventLogTest, NotifiesBeforeAndAfterEachEntryOnTheMainQueue) {
    DispatchStage stage({typing(1, twoFingerTap)});
    std::vector<std::string> announced;
    const auto note = [&](const std::string& when) {
        announced.push_back(when + " " + std::to_string(stage.logged().size()));
    };
    const Subscription subscription =
        stage.dispatcher->changes().subscribe([&] { note("before"); }, [&] { note("after"); });
    stage.dispatcher->handle(twoFingerTap, true);
    stage.dispatcher->handle(pinchIn, true);
    EXPECT_THAT(announced, IsEmpty());
    stage.mainQueue->runAll();
    EXPECT_THAT(announced, ElementsAre("before 0", "after 1", "before 1", "after 2"));
}

TEST(MasterSwitchTest, IsOnIfNoBooleanIsStored) {
    EXPECT_TRUE(DispatchStage().dispatcher->masterEnabled());
    const auto defaults = std::make_shared<FakeUserDefaults>();
    defaults->stored["masterEnabled"] = "false"; // text instead of a boolean
    EXPECT_TRUE(DispatchStage({}, defaults).dispatcher->masterEnabled());
}

TEST(MasterSwitchTest, IsReadFromTheDefaultsAndWrittenOnlyOnAssignment) {
    for (const bool stored : {false, true}) {
        const auto defaults = std::make_shared<FakeUserDefaults>();
        defaults->storedBooleans["masterEnabled"] = stored;
        EXPECT_EQ(DispatchStage({}, defaults).dispatcher->masterEnabled(), stored);
        EXPECT_THAT(defaults->booleanWrites, IsEmpty());
        EXPECT_THAT(defaults->writes, IsEmpty());
    }
}

TEST(MasterSwitchTest, OffStateSurvivesARestart) {
    const auto defaults = std::make_shared<FakeUserDefaults>();
    DispatchStage({}, defaults).dispatcher->setMasterEnabled(false);
    EXPECT_FALSE(DispatchStage({}, defaults).dispatcher->masterEnabled());
    DispatchStage({}, defaults).dispatcher->setMasterEnabled(true);
    EXPECT_TRUE(DispatchStage({}, defaults).dispatcher->masterEnabled());
}

TEST(MasterSwitchTest, EveryAssignmentIsWrittenEvenWithoutAChange) {
    DispatchStage stage;
    stage.dispatcher->setMasterEnabled(true);
    stage.dispatcher->setMasterEnabled(false);
    stage.dispatcher->setMasterEnabled(false);
    using Write = std::pair<std::string, bool>;
    EXPECT_THAT(stage.defaults->booleanWrites,
                ElementsAre(Write{"masterEnabled", true}, Write{"masterEnabled", false},
                            Write{"masterEnabled", false}));
}

TEST(MasterSwitchTest, ObserversAreNotifiedBeforeTheValueIsWritten) {
    DispatchStage stage;
    std::vector<std::string> announced;
    const auto note = [&](const std::string& when) {
        announced.push_back(when + (stage.dispatcher->masterEnabled() ? " on" : " off") +
                            (stage.defaults->booleanWrites.empty() ? "" : " written"));
    };
    const Subscription subscription =
        stage.dispatcher->changes().subscribe([&] { note("before"); }, [&] { note("after"); });
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_THAT(announced, ElementsAre("before on", "after off"));
    EXPECT_EQ(stage.defaults->booleanWrites.size(), 1U);
}

TEST(MasterSwitchTest, WritesTheValueThatAnObserverSet) {
    DispatchStage stage;
    bool isFirst = true;
    const Subscription subscription = stage.dispatcher->changes().subscribe({}, [&] {
        if (std::exchange(isFirst, false)) {
            stage.dispatcher->setMasterEnabled(true);
        }
    });
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_TRUE(stage.dispatcher->masterEnabled());
    EXPECT_TRUE(DispatchStage({}, stage.defaults).dispatcher->masterEnabled());
}

} // namespace
} // namespace glidemap::test

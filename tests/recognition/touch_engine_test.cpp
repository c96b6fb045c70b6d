#include "kit/engine_stage.h"
#include "kit/records.h"
#include "kit/script.h"
#include "recognition/touch_engine.h"
#include "test_driver_library.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;
using ReportedGestures = std::vector<ReportedGesture>;

TouchFrame frameOf(double time, int touching, int hovering = 0) {
    TouchFrame frame{time, {}};
    for (std::int32_t id = 0; id < touching + hovering; ++id) {
        frame.touches.push_back({id, 0.3 + 0.1 * id, 0.5, id < touching});
    }
    return frame;
}

TEST(TouchEngineTest, InitialFingerCountIsZero) {
    const EngineStage stage;
    EXPECT_EQ(stage.engine->touchingCount(), 0);
}

TEST(TouchEngineTest, FingerCountIsUpdatedBeforeRecognitionRuns) {
    EngineStage stage;
    stage.submit(frameOf(0, 3));
    EXPECT_EQ(stage.engine->touchingCount(), 3);
    stage.submit(frameOf(0.1, 2, 2));
    EXPECT_EQ(stage.engine->touchingCount(), 2);
    stage.submit(frameOf(0.2, 0, 4));
    EXPECT_EQ(stage.engine->touchingCount(), 0);
    EXPECT_EQ(stage.reported, ReportedGestures());
    stage.run();
    EXPECT_EQ(stage.reported, (ReportedGestures{{0.2, threeFingerTap}}));
}

TEST(TouchEngineTest, EmptyReportResetsTheFingerCountAndIsForwarded) {
    EngineStage stage;
    stage.submit(frameOf(0, 2));
    stage.submit({0.1, {}});
    EXPECT_EQ(stage.engine->touchingCount(), 0);
    stage.run();
    EXPECT_EQ(stage.reported, (ReportedGestures{{0.1, twoFingerTap}}));
}

TEST(TouchEngineTest, FingerCountIncludesEveryTouchingRecord) {
    EngineStage stage;
    report({record(7, 0.3, 0.5), record(7, 0.3, 0.5),
            record(8, std::numeric_limits<double>::quiet_NaN(), 0.5)},
           0);
    EXPECT_EQ(stage.engine->touchingCount(), 3);
}

TEST(TouchEngineTest, FramesAreRecognisedInTheOrderOfTheReports) {
    EngineStage stage;
    const auto tap = fingers(2).down().hold(0.1).up();
    for (const TouchFrame& frame : tap.wait(0.4).then(fingers(3).down().hold(0.1).up()).frames()) {
        report(frame);
    }
    EXPECT_EQ(stage.reported, ReportedGestures());
    // All frames are processed at once, long after their arrival. Recognition uses their
    // timestamps, and the cooldown uses the clock.
    stage.engine->onGesture = [&](GestureType gesture) {
        stage.reported.push_back({stage.time.now(), gesture});
        stage.time.advanceTo(stage.time.now() + 1);
    };
    stage.run();
    EXPECT_EQ(stage.reported, (ReportedGestures{{0, twoFingerTap}, {1, threeFingerTap}}));
}

TEST(TouchEngineTest, UsesTheTimestampOfTheReportNotOfItsRecords) {
    EngineStage stage;
    std::vector<MTTouch> records = {record(1, 0.3, 0.5), record(2, 0.4, 0.5)};
    records[0].timestamp = 1e9;
    records[1].timestamp = -1e9;
    report(records, 10);
    report(std::vector<MTTouch>(), 10.2);
    stage.run();
    ASSERT_EQ(stage.reported.size(), 1U);
    EXPECT_EQ(stage.reported[0].gesture, twoFingerTap);
}

TEST(TouchEngineTest, GesturesAreDeliveredAtLeast250MillisecondsApart) {
    const struct {
        const char* fact;
        double gap;
        bool delivered;
    } rows[] = {
        {"at once", 0, false},
        {"0.2 s", 0.2, false},
        // The uptime is a thousand seconds, so a value nearer to 0.25 would be rounded to 0.25.
        {"just below", 0.25 - 1.2e-13, false},
        {"precisely", 0.25, true},
        {"above", 0.25 + 1.2e-13, true},
        {"much later", 100, true},
    };
    for (const auto& [fact, gap, delivered] : rows) {
        EngineStage stage;
        stage.recognise(twoFingerTap);
        stage.time.advanceTo(gap);
        stage.recognise(threeFingerTap);
        EXPECT_EQ(stage.reported.size(), delivered ? 2U : 1U) << fact;
    }
}

TEST(TouchEngineTest, FirstGestureIsNotDroppedByTheCooldown) {
    EngineStage stage;
    stage.recognise(pinchIn);
    EXPECT_EQ(stage.reported, (ReportedGestures{{0, pinchIn}}));
}

TEST(TouchEngineTest, AllGesturesShareOneCooldown) {
    EngineStage stage;
    stage.recognise(twoFingerTap);
    stage.time.advanceTo(0.1);
    for (const GestureType gesture : allGestureTypes) {
        stage.recognise(gesture);
    }
    EXPECT_EQ(stage.reported, (ReportedGestures{{0, twoFingerTap}}));
}

TEST(TouchEngineTest, DroppedGestureDoesNotProlongTheCooldown) {
    EngineStage stage;
    stage.recognise(twoFingerTap);
    stage.time.advanceTo(0.2);
    stage.recognise(threeFingerTap);
    stage.time.advanceTo(0.25);
    stage.recognise(fourFingerTap);
    EXPECT_EQ(stage.reported, (ReportedGestures{{0, twoFingerTap}, {0.25, fourFingerTap}}));
}

TEST(TouchEngineTest, CooldownStartsEvenWithoutACallback) {
    EngineStage stage;
    const auto listener = stage.engine->onGesture;
    stage.engine->onGesture = {};
    stage.recognise(twoFingerTap);
    stage.engine->onGesture = listener;
    stage.time.advanceTo(0.2);
    stage.recognise(threeFingerTap);
    EXPECT_EQ(stage.reported, ReportedGestures());
    stage.time.advanceTo(0.25);
    stage.recognise(fourFingerTap);
    EXPECT_EQ(stage.reported, (ReportedGestures{{0.25, fourFingerTap}}));
}

TEST(TouchEngineTest, CooldownStartsBeforeTheCallbackRuns) {
    EngineStage stage;
    stage.engine->onGesture = [&](GestureType gesture) {
        stage.reported.push_back({stage.time.now(), gesture});
        stage.recognise(threeFingerTap);
    };
    stage.recognise(twoFingerTap);
    EXPECT_EQ(stage.reported, (ReportedGestures{{0, twoFingerTap}}));
}

TEST(TouchEngineTest, CooldownDropsAQuickUnboundDoubleTap) {
    EngineStage stage;
    const auto tap = fingers(2).down().hold(0.05).up();
    stage.play(tap.wait(0.15).then(tap)); // the taps end 0.2 s apart
    stage.finish();
    EXPECT_EQ(gesturesOf(stage.reported), std::vector{twoFingerTap});
}

TEST(TouchEngineTest, CooldownAlsoAppliesToAHeldBackTap) {
    EngineStage stage({2});
    stage.play(fingers(2).startingAt(-0.1).down().until(0).up());
    stage.play(fingers(1).at(0.1, 0.1).startingAt(0.2).down().until(0.3).up());
    stage.finish();
    EXPECT_EQ(stage.reported,
              (ReportedGestures{{0.3, cornerTapBottomLeft}})); // the tap at 0.45 is dropped
}

TEST(TouchEngineTest, BoundDoubleTapIsDeliveredInsteadOfTheSingleTap) {
    EngineStage stage({3});
    const auto tap = fingers(3).down().hold(0.1).up();
    stage.play(tap.wait(0.2).then(tap));
    stage.finish();
    EXPECT_EQ(gesturesOf(stage.reported), std::vector{threeFingerDoubleTap});
}

TEST(TouchEngineTest, StartsEvenWithoutADriver) {
    EngineStage stage; // already started
    EXPECT_TRUE(stage.manager.loadError().has_value());
    EXPECT_FALSE(stage.manager.isRunning());
    stage.engine->start();
    stage.engine->stop();
    stage.engine->stop();
    EXPECT_EQ(stage.engine->touchingCount(), 0);
}

TEST(TouchEngineTest, StoppingRemovesTheSink) {
    EngineStage stage;
    stage.submit(frameOf(0, 2));
    stage.engine->stop();
    report(frameOf(0.1, 4));
    stage.run();
    EXPECT_EQ(stage.engine->touchingCount(), 2); // as in the last report that arrived
}

TEST(TouchEngineTest, StoppingDiscardsPendingWork) {
    EngineStage stage({2});
    stage.play(fingers(2).startingAt(-0.1).down().until(0).up()); // this tap is held back
    stage.submit(frameOf(0.1, 3));
    stage.submit({0.2, {}}); // this tap has not been processed yet
    stage.engine->stop();
    stage.run();
    stage.finish();
    EXPECT_EQ(stage.reported, ReportedGestures());
}

TEST(TouchEngineTest, CanBeRestarted) {
    EngineStage stage;
    stage.engine->stop();
    stage.engine->start();
    stage.play(fingers(4).down().hold(0.1).up());
    EXPECT_EQ(gesturesOf(stage.reported), std::vector{fourFingerTap});
}

TEST(TouchEngineTest, TouchesBeforeAStopAreDiscarded) {
    EngineStage stage({2});
    stage.play(fingers(2).startingAt(-0.1).down().until(0).up()); // this tap is held back
    stage.play(fingers(3).startingAt(0.05).down().until(0.1));    // these fingers stay on the pad
    stage.engine->stop();
    stage.engine->start();
    EXPECT_EQ(stage.engine->touchingCount(), 0);
    stage.submit({0.2, {}}); // no three-finger tap: the restart has discarded the touches
    // This tap is not the second tap of a double tap.
    stage.play(fingers(2).startingAt(0.25).down().until(0.3).up());
    stage.finish();
    EXPECT_EQ(gesturesOf(stage.reported), std::vector{twoFingerTap});
}

// An engine with a driver that records its calls.
class TouchEngineDriverTest : public testing::Test {
protected:
    ~TouchEngineDriverTest() override { MultitouchDeviceManager::setFrameSink({}); }

    VirtualTime time;
    MultitouchDeviceManager manager{testDriver("list-with-nulls")};
    TestDriverLibrary driver{manager};
    std::shared_ptr<TouchEngine> engine =
        TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &manager});
};

TEST_F(TouchEngineDriverTest, StartsTheDevicesOnce) {
    engine->start();
    engine->start();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; register b; start b 0");
    EXPECT_TRUE(manager.isRunning());
    engine->stop();
}

TEST_F(TouchEngineDriverTest, StopsEachDeviceBeforeUnregisteringIt) {
    engine->start();
    const std::string started = driver.calls();
    engine->stop();
    engine->stop();
    EXPECT_EQ(driver.calls(), started + "; stop a; unregister a; stop b; unregister b");
    EXPECT_FALSE(manager.isRunning());
}

TEST_F(TouchEngineDriverTest, FirstStartListsTheDevicesOnceEvenWithoutDevices) {
    MultitouchDeviceManager growing(testDriver("growing-list"));
    const TestDriverLibrary library(growing);
    const auto other =
        TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &growing});
    other->start();
    EXPECT_EQ(library.calls(), "create list");
    other->stop();
}

TEST_F(TouchEngineDriverTest, RestartListsTheDevicesOnce) {
    engine->start();
    engine->stop();
    const std::string stopped = driver.calls();
    engine->start();
    EXPECT_EQ(driver.calls(),
              stopped + "; create list; register a; start a 0; register b; start b 0");
    engine->stop();
}

TEST_F(TouchEngineDriverTest, RestartFindsADeviceAttachedWhileStopped) {
    MultitouchDeviceManager growing(testDriver("growing-list"));
    const TestDriverLibrary library(growing);
    const auto other =
        TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &growing});
    other->start();
    EXPECT_FALSE(growing.isRunning());
    other->stop();
    library.attach(1);
    other->start();
    EXPECT_TRUE(growing.isRunning());
    EXPECT_EQ(growing.loadError(), std::nullopt);
    other->stop();
    library.attach(0);
}

TEST_F(TouchEngineDriverTest, LooksForDevicesOnlyWhileStarted) {
    engine->lookForDevices();
    EXPECT_EQ(driver.calls(), "");
    engine->start();
    const std::string started = driver.calls();
    engine->lookForDevices();
    EXPECT_EQ(driver.calls(), started + "; create list");
    engine->stop();
    const std::string stopped = driver.calls();
    engine->lookForDevices();
    EXPECT_EQ(driver.calls(), stopped);
}

TEST_F(TouchEngineDriverTest, DriverReportsReachTheEngine) {
    engine->start();
    const MTTouch records[] = {record(1, 0.3, 0.5), record(2, 0.4, 0.5)};
    driver.report(records, 2, 1.5);
    EXPECT_EQ(engine->touchingCount(), 2);
    engine->stop();
}

TEST_F(TouchEngineDriverTest, StoppingBeforeStartingDoesNotCallTheDriver) {
    engine->stop();
    EXPECT_EQ(driver.calls(), "");
}

TEST_F(TouchEngineDriverTest, UnusableDriverIsNotCalled) {
    MultitouchDeviceManager incomplete(testDriver("without-start"));
    const TestDriverLibrary library(incomplete);
    const auto other =
        TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &incomplete});
    other->start();
    other->stop();
    EXPECT_EQ(library.calls(), "");
}

TEST(TouchEngineDestructionTest, EngineMayBeDestroyedWhileFramesAreQueued) {
    EngineStage stage;
    stage.submit(frameOf(0, 2));
    stage.submit({0.1, {}});
    const std::weak_ptr<TouchEngine> watched = stage.engine;
    stage.engine.reset();
    EXPECT_TRUE(watched.expired()); // the queue does not own the engine
    stage.run();
    EXPECT_EQ(stage.reported, ReportedGestures());
}

TEST(TouchEngineDestructionTest, EngineMayBeDestroyedWhileATapIsHeldBack) {
    EngineStage stage({2});
    stage.play(fingers(2).down().hold(0.1).up());
    EXPECT_LT(stage.time.nextDeadline(), 1);
    stage.engine.reset();
    stage.finish();
    EXPECT_EQ(stage.reported, ReportedGestures());
}

TEST(TouchEngineDestructionTest, ReportAfterDestructionIsDropped) {
    EngineStage stage;
    stage.engine.reset();
    report(frameOf(0, 2)); // the sink is still installed, but the engine is destroyed
    stage.run();
    EXPECT_EQ(stage.reported, ReportedGestures());
}

TEST(TouchEngineDestructionTest, EngineMayBeDestroyedWhileItsCallbackRuns) {
    EngineStage stage;
    stage.engine->onGesture = [&stage](GestureType gesture) {
        auto& all = stage.reported;
        stage.engine.reset();
        all.push_back({0, gesture});
    };
    stage.play(fingers(2).down().hold(0.1).up());
    EXPECT_EQ(gesturesOf(stage.reported), std::vector{twoFingerTap});
    EXPECT_EQ(stage.engine, nullptr);
}

TEST(TouchEngineDestructionTest, EngineThatWasNeverStartedReceivesNoReports) {
    VirtualTime time;
    MultitouchDeviceManager manager({"/no/such/driver", {}});
    const auto engine =
        TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &manager});
    report(frameOf(0, 2));
    EXPECT_EQ(engine->touchingCount(), 0);
}

TEST(TouchEngineHostileTest, TenThousandContactsAreCounted) {
    EngineStage stage;
    std::vector<MTTouch> records;
    for (std::int32_t id = 0; id < 10'000; ++id) {
        records.push_back(record(id, id / 10'000.0, 0.5));
    }
    for (int frame = 0; frame < 20; ++frame) {
        report(records, frame * 0.01);
        stage.run();
    }
    EXPECT_EQ(stage.engine->touchingCount(), 10'000);
    report(std::vector<MTTouch>(), 1);
    stage.play(fingers(2).startingAt(5).down().hold(0.1).up());
    EXPECT_EQ(gesturesOf(stage.reported), std::vector{twoFingerTap});
}

TEST(TouchEngineHostileTest, GesturesAreRecognisedAfterNonFinitePositions) {
    EngineStage stage;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    report({record(1, nan, infinity), record(2, -infinity, nan)}, 0);
    report({record(1, 0.5, infinity)}, 0.1);
    report({record(1, 3e38, -3e38)}, 0.2); // positions are not clamped, so this is a corner
    report(std::vector<MTTouch>(), 0.3);
    stage.play(fingers(2).startingAt(5).down().hold(0.1).up());
    EXPECT_EQ(gesturesOf(stage.reported), (std::vector{cornerTapBottomRight, twoFingerTap}));
}

TEST(TouchEngineSharedTest, SharedInstanceIsCreatedOnceFromItsConfiguration) {
    static VirtualTime time;
    static MultitouchDeviceManager manager({"/no/such/driver", {}});
    static int made = 0;
    TouchEngine::configureShared([] {
        ++made;
        return TouchEngine::Ports{time.clock(), time.queue(), time.delayedWork(), &manager};
    });
    EXPECT_EQ(made, 0); // the instance is created on first use
    EXPECT_EQ(TouchEngine::shared(), TouchEngine::shared());
    EXPECT_EQ(made, 1);
    EXPECT_EQ(TouchEngine::shared()->touchingCount(), 0);
}

} // namespace
} // namespace glidemap

// Tests the deferral of frames. A frame is deferred if the touching fingers have not changed and no
// long press can follow. Deferral changes neither the gestures nor their times.
#include "kit/engine_stage.h"
#include "kit/records.h"
#include "kit/script.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/touch_engine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;

// A queue that sleeps whenever possible: it runs deferred tasks together with the next submitted
// task.
class SleepyQueue : public SerialQueue {
public:
    void submit(Task task) override {
        tasks.push_back(std::move(task));
        ++wakeUps;
        for (Task& each : std::exchange(tasks, {})) {
            each();
        }
    }
    void defer(Task task) override { tasks.push_back(std::move(task)); }
    void stop() override { tasks.clear(); }

    int wakeUps = 0;

private:
    std::vector<Task> tasks;
};

class SleepyStage {
public:
    SleepyStage() : manager({"/no/such/driver", {}}) {
        engine = TouchEngine::create({time.clock(), queue, time.delayedWork(), &manager});
        engine->onGesture = [this](GestureType gesture) {
            reported.push_back({time.now(), gesture});
        };
        engine->sessionRecognizer().doubleTapBindingExists = [](int count) {
            return count == 2;
        };
        engine->start();
    }
    SleepyStage(const SleepyStage&) = delete;
    SleepyStage& operator=(const SleepyStage&) = delete;
    ~SleepyStage() { MultitouchDeviceManager::setFrameSink({}); }

    void play(const std::vector<TouchFrame>& frames) {
        for (const TouchFrame& frame : frames) {
            time.advanceTo(frame.timestamp);
            report(frame);
        }
    }

    // Returns the number of frames that woke the queue.
    int wakeUpsOf(const Script& script) {
        const int before = queue->wakeUps;
        play(script.frames());
        return queue->wakeUps - before;
    }

    VirtualTime time;
    MultitouchDeviceManager manager; // has no driver
    std::shared_ptr<SleepyQueue> queue = std::make_shared<SleepyQueue>();
    std::shared_ptr<TouchEngine> engine;
    std::vector<ReportedGesture> reported;
};

TEST(DeferredFramesTest, OneMovingFingerWakesTheQueueOnlyWhenItLandsAndLifts) {
    SleepyStage stage;
    const Script move = fingers(1).down().moveBy(0.4, 0.1, 2).up();
    ASSERT_GT(move.frames().size(), 100U);
    EXPECT_EQ(stage.wakeUpsOf(move), 2);
}

TEST(DeferredFramesTest, FiveFingersWakeTheQueueOnlyWhenTheyLandAndLift) {
    SleepyStage stage;
    EXPECT_EQ(stage.wakeUpsOf(fingers(5).down().hold(2).up()), 2);
}

TEST(DeferredFramesTest, HoveringContactWakesTheQueueOnlyOnce) {
    SleepyStage stage;
    for (int index = 0; index < 100; ++index) {
        report({0.01 * index, {{1, 0.5, 0.5, false}}});
    }
    EXPECT_EQ(stage.queue->wakeUps, 1);
}

TEST(DeferredFramesTest, FingersThatMayMakeALongPressWakeTheQueueUntilTheyMove) {
    for (const int count : {2, 3, 4}) {
        SleepyStage stage;
        const Script rest = fingers(count).down().hold(0.5);
        EXPECT_EQ(stage.wakeUpsOf(rest), static_cast<int>(rest.frames().size()));
        EXPECT_LT(stage.wakeUpsOf(rest.moveBy(0.3, 0, 2).up()),
                  static_cast<int>(rest.frames().size()) + 60);
        EXPECT_TRUE(stage.reported.empty());
    }
}

TEST(DeferredFramesTest, AfterALongPressFingersWakeTheQueueOnlyWhenTheyLift) {
    SleepyStage stage;
    stage.play(fingers(3).down().hold(1).frames());
    EXPECT_EQ(gesturesOf(stage.reported), std::vector{threeFingerLongPress});
    EXPECT_EQ(stage.wakeUpsOf(fingers(3).startingAt(1.1).down().hold(2).up()), 1);
}

struct DriftRow {
    const char* name;
    double drift;
    bool waits;
};

TEST(DeferredFramesTest, RecognizerWaitsForFingerChangesIfDriftPreventsALongPress) {
    for (const DriftRow& row : {DriftRow{"below", 0.0449, false}, DriftRow{"at", 0.045, false},
                                DriftRow{"above", 0.0451, true}}) {
        const VirtualTime time;
        const auto recognizer = SessionRecognizer::create(time.delayedWork());
        recognizer->process({0, {{1, 0, 0.5, true}, {2, 0.5, 0.5, true}}});
        EXPECT_FALSE(recognizer->waitsForFingers()) << row.name;
        recognizer->process({0.1, {{1, row.drift, 0.5, true}, {2, 0.5, 0.5, true}}});
        EXPECT_EQ(recognizer->waitsForFingers(), row.waits) << row.name;
    }
}

TEST(DeferredFramesTest, RecognizerWaitsForFingerChangesUnlessALongPressIsPossible) {
    const VirtualTime time;
    const auto recognizer = SessionRecognizer::create(time.delayedWork());
    EXPECT_TRUE(recognizer->waitsForFingers());
    recognizer->process({0, {{1, 0.2, 0.5, true}}});
    EXPECT_TRUE(recognizer->waitsForFingers());
    recognizer->process({0.1, {{1, 0.2, 0.5, true}, {2, 0.5, 0.5, true}}});
    EXPECT_FALSE(recognizer->waitsForFingers());
    recognizer->process({0.2, {{1, 0.2, 0.5, true}}});
    EXPECT_TRUE(recognizer->waitsForFingers());
    recognizer->process({0.3, {}});
    EXPECT_TRUE(recognizer->waitsForFingers());
}

// Simulates fingers that randomly land, lift, and move slowly or fast. Some reports contain a
// finger without a position.
class RandomTouching {
public:
    explicit RandomTouching(unsigned seed) : random(seed) {}

    std::vector<TouchFrame> frames(int count) {
        std::vector<TouchFrame> frames;
        for (int index = 0; index < count; ++index) {
            change();
            move();
            time += chance(50) ? 0.3 : 0.01;
            frames.push_back({time, touches});
        }
        frames.push_back({time + 0.01, {}});
        return frames;
    }

private:
    bool chance(int oneIn) { return random() % static_cast<unsigned>(oneIn) == 0; }

    double upTo(double reach) {
        return std::uniform_real_distribution<double>(-reach, reach)(random);
    }

    void change() {
        if (touches.size() < 6 && chance(touches.empty() ? 3 : 12)) {
            touches.push_back({nextId++, 0.5 + upTo(0.5), 0.5 + upTo(0.5), true});
        }
        if (!touches.empty() && chance(30)) {
            touches.erase(touches.begin());
        }
        if (chance(15)) {
            touches.clear();
        }
    }

    void move() {
        if (chance(20)) {
            pace = chance(2) ? 0.0005 : 0.02;
        }
        for (TouchPoint& touch : touches) {
            touch.x = chance(400)              ? std::numeric_limits<double>::quiet_NaN()
                      : std::isfinite(touch.x) ? touch.x + upTo(pace)
                                               : 0.5;
            touch.y += upTo(pace);
        }
    }

    std::mt19937 random;
    std::vector<TouchPoint> touches;
    std::int32_t nextId = 1;
    double time = 1;
    double pace = 0.0005;
};

TEST(DeferredFramesTest, DeferringFramesChangesNeitherGesturesNorTheirTimes) {
    std::size_t gestures = 0;
    std::size_t frameCount = 0;
    int wakeUps = 0;
    for (unsigned seed = 0; seed < 100; ++seed) {
        const std::vector<TouchFrame> frames = RandomTouching(seed).frames(1000);
        std::vector<ReportedGesture> expected;
        {
            EngineStage stage({2});
            stage.play(frames);
            stage.finish();
            expected = stage.reported;
        }
        SleepyStage stage;
        stage.play(frames);
        stage.time.runRemaining();
        ASSERT_EQ(stage.reported, expected) << "seed " << seed;
        gestures += expected.size();
        frameCount += frames.size();
        wakeUps += stage.queue->wakeUps;
    }
    EXPECT_GT(gestures, 500U) << "the random touching makes too few gestures";
    EXPECT_LT(static_cast<std::size_t>(wakeUps), frameCount / 2) << "too few frames are deferred";
}

// The fingers may have changed while the engine was stopped.
TEST(DeferredFramesTest, FirstFrameAfterARestartWakesTheQueue) {
    SleepyStage stage;
    stage.play(fingers(1).down().hold(0.5).frames());
    stage.engine->stop();
    stage.engine->start();
    EXPECT_EQ(stage.wakeUpsOf(fingers(1).startingAt(1).down().hold(0.5)), 1);
}

} // namespace
} // namespace glidemap

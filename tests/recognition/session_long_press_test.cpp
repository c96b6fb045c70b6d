#include "kit/rows.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;

TEST(SessionLongPressTest, RestingFingersMakeALongPress) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"two fingers", fingers(2).down().hold(0.9).up(), {twoFingerLongPress}},
        {"three fingers", fingers(3).down().hold(0.9).up(), {threeFingerLongPress}},
        {"four fingers", fingers(4).down().hold(0.9).up(), {fourFingerLongPress}},
        {"once only, however long", fingers(2).down().hold(5).up(), {twoFingerLongPress}},
        {"again in the next session",
         fingers(2).down().hold(1).up().wait(0.1).down().hold(1).up(),
         {twoFingerLongPress, twoFingerLongPress}},
        {"one finger", fingers(1).down().hold(0.9).up(), {}},
        {"five fingers", fingers(5).down().hold(0.9).up(), {}},
        {"not long enough", fingers(2).down().hold(0.75).up(), {}},
        {"drifting a little",
         fingers(3).down().moveBy(0.03, 0, 0.5).hold(0.5).up(),
         {threeFingerLongPress}},
        {"drifting too far", fingers(3).down().moveBy(0.06, 0, 0.5).hold(0.5).up(), {}},
        {"drifting too far and back",
         fingers(3).down().moveBy(0.06, 0, 0.2).moveBy(-0.06, 0, 0.2).hold(0.5).up(),
         {}},
    });
}

TEST(SessionLongPressTest, IsReportedWhileTheFingersAreStillDown) {
    expectReportedGestures(fingers(3).down().until(0.8).report().until(2).up(),
                           {{0.8, threeFingerLongPress}});
}

TEST(SessionLongPressTest, RequiresAHoldOf800Milliseconds) {
    const auto lastSeen = [](double time) {
        return fingers(2).down().until(time).report().up();
    };
    expectRows(std::vector<Row>{
        {"below", lastSeen(justBelow(0.8)), {}},
        {"at the limit", lastSeen(0.8), {twoFingerLongPress}},
        {"above", lastSeen(justAbove(0.8)), {twoFingerLongPress}},
        {"the final report has no fingers", fingers(2).down().until(0.8).up(), {}},
    });
}

TEST(SessionLongPressTest, RejectsADriftAboveTheMaximum) {
    const auto drifting = [](double drift) {
        return fingersAt({{0, 0.5}, {0.3, 0.5}}).down().moveFinger(0, drift, 0, 0.1).hold(0.9).up();
    };
    expectRows(std::vector<Row>{
        {"below", drifting(justBelow(0.045)), {twoFingerLongPress}},
        {"at the limit", drifting(0.045), {twoFingerLongPress}},
        {"above", drifting(justAbove(0.045)), {}},
    });
}

TEST(SessionLongPressTest, HoldTimeStartsAtTheLastLanding) {
    expectRows(std::vector<Row>{
        {"the last finger long enough",
         fingers(2).startingAt(-0.5).down().until(0).add(1).until(0.8).report().up(),
         {threeFingerLongPress}},
        {"the last finger not long enough",
         fingers(2).startingAt(-0.5).down().until(0).add(1).until(justBelow(0.8)).report().up(),
         {}},
    });
    expectReportedGestures(
        fingers(1).startingAt(-3).down().until(0).addAt(0.6, 0.5).until(0.8).report().up(),
        {{0.8, twoFingerLongPress}});
}

TEST(SessionLongPressTest, IsCancelledWhenAFingerLifts) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"a third finger leaves at once", fingers(3).down().hold(0.1).lift(1).hold(1).up(), {}},
        {"a finger is replaced by another",
         fingers(2).down().hold(0.05).lift(1).hold(0.05).add(1).hold(1).up(),
         {}},
    });
}

TEST(SessionLongPressTest, FingerReportedTwiceInOneFramePreventsALongPress) {
    auto frames = fingers(2).down().hold(1).up().frames();
    frames[50].touches.push_back(frames[50].touches.front());
    EXPECT_EQ(gesturesOf(perform(frames)), std::vector<GestureType>());
}

TEST(SessionLongPressTest, NoOtherGestureIsReportedWhenASessionWithALongPressEnds) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"spreading afterwards",
         fingersAt({{0.5, 0.4}, {0.5, 0.6}}).down().hold(0.85).spreadBy(2, 0.3).up(),
         {twoFingerLongPress}},
        {"turning afterwards",
         fingersAt({{0.5, 0.4}, {0.5, 0.6}}).down().hold(0.85).turnBy(1, 0.3).up(),
         {twoFingerLongPress}},
        {"swiping afterwards",
         fingers(3).down().hold(0.85).moveBy(0.3, 0, 0.2).up(),
         {threeFingerLongPress}},
    });
}

TEST(SessionLongPressTest, EarlyMovementPreventsALongPress) {
    expectReportedGestures(
        fingersAt({{0.5, 0.4}, {0.5, 0.6}}).down().hold(0.5).spreadBy(2, 0.3).up(),
        {{0.5 + 0.3 + 1 / 125.0, pinchOut}});
}

// The nested call to process() shows the state during the callback. The program's callbacks must
// not call process().
TEST(SessionLongPressTest, SessionIsConsumedBeforeTheCallbackRuns) {
    VirtualTime time;
    const auto recognizer = SessionRecognizer::create(time.delayedWork());
    TouchFrame present;
    int reports = 0;
    recognizer->onGesture = [&](GestureType) {
        if (++reports < 3) {
            recognizer->process(present);
        }
    };
    for (const TouchFrame& frame : fingers(2).down().hold(1).up().frames()) {
        present = frame;
        recognizer->process(frame);
    }
    EXPECT_EQ(reports, 1);
}

TEST(SessionLongPressTest, ConsumesItsSessionEvenWithoutACallback) {
    VirtualTime time;
    const auto recognizer = SessionRecognizer::create(time.delayedWork());
    std::vector<GestureType> reported;
    const auto pinch = fingersAt({{0.5, 0.4}, {0.5, 0.6}}).down().hold(0.85);
    for (const TouchFrame& frame : pinch.frames()) {
        recognizer->process(frame);
    }
    recognizer->onGesture = [&](GestureType gesture) {
        reported.push_back(gesture);
    };
    const auto frames = pinch.spreadBy(2, 0.3).up().frames();
    for (std::size_t index = pinch.frames().size(); index < frames.size(); ++index) {
        recognizer->process(frames[index]);
    }
    EXPECT_EQ(reported, std::vector<GestureType>());
}

} // namespace
} // namespace glidemap

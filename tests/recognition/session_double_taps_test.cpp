#include "kit/rows.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;

const PerformanceStage bound = {Through::recognizer, {2, 3, 4}};

Script tapOf(int count) {
    return fingers(count).down().hold(0.1).up();
}

// Returns two taps whose sessions end at 0 and at `secondEnd`.
Script pairEndingAt(double secondEnd) {
    return fingers(2)
        .startingAt(-0.1)
        .down()
        .until(0)
        .up()
        .until(0.35)
        .down()
        .until(secondEnd)
        .up();
}

TEST(SessionDoubleTapsTest, SecondQuickTapWithTheSameFingerCountIsADoubleTap) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"two fingers", tapOf(2).wait(0.2).then(tapOf(2)), {twoFingerTap, twoFingerDoubleTap}},
        {"three fingers",
         tapOf(3).wait(0.2).then(tapOf(3)),
         {threeFingerTap, threeFingerDoubleTap}},
        {"four fingers", tapOf(4).wait(0.2).then(tapOf(4)), {fourFingerTap, fourFingerDoubleTap}},
        {"too slow", tapOf(2).wait(0.4).then(tapOf(2)), {twoFingerTap, twoFingerTap}},
        {"another number of fingers",
         tapOf(2).wait(0.2).then(tapOf(3)),
         {twoFingerTap, threeFingerTap}},
    });
}

TEST(SessionDoubleTapsTest, BoundDoubleTapSuppressesItsSingleTap) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"two fingers", tapOf(2).wait(0.2).then(tapOf(2)), {twoFingerDoubleTap}, {2}},
        {"three fingers", tapOf(3).wait(0.2).then(tapOf(3)), {threeFingerDoubleTap}, {3}},
        {"four fingers", tapOf(4).wait(0.2).then(tapOf(4)), {fourFingerDoubleTap}, {4}},
        {"too slow", tapOf(2).wait(0.4).then(tapOf(2)), {twoFingerTap, twoFingerTap}, {2}},
        {"bound for another number of fingers",
         tapOf(2).wait(0.2).then(tapOf(2)),
         {twoFingerTap, twoFingerDoubleTap},
         {3, 4}},
    });
}

TEST(SessionDoubleTapsTest, SecondTapMustEndAtMost450MillisecondsAfterTheFirst) {
    expectRows(std::vector<Row>{
        {"below", pairEndingAt(justBelow(0.45)), {twoFingerTap, twoFingerDoubleTap}},
        {"at the limit", pairEndingAt(0.45), {twoFingerTap, twoFingerDoubleTap}},
        {"above", pairEndingAt(justAbove(0.45)), {twoFingerTap, twoFingerTap}},
    });
}

TEST(SessionDoubleTapsTest, IntervalIsMeasuredBetweenTheEndsOfTheTaps) {
    const auto first = fingers(2).down().hold(0.1).up();
    expectRows(std::vector<Row>{
        {"the second starts in time and ends too late",
         first.wait(0.2).then(fingers(2).down().hold(0.28).up()),
         {twoFingerTap, twoFingerTap}},
        {"the first is long",
         fingers(2).down().hold(0.29).up().wait(0.3).then(first),
         {twoFingerTap, twoFingerDoubleTap}},
    });
}

TEST(SessionDoubleTapsTest, TapAfterADoubleTapIsASingleTap) {
    const auto quick = fingers(2).down().hold(0.05).up();
    const auto three = tapOf(2).wait(0.2).then(tapOf(2)).wait(0.2).then(tapOf(2));
    expectRows(std::vector<Row>{
        {"three taps", three, {twoFingerTap, twoFingerDoubleTap, twoFingerTap}},
        {"three taps with the third within the limit of the first",
         quick.wait(0.05).then(quick).wait(0.05).then(quick),
         {twoFingerTap, twoFingerDoubleTap, twoFingerTap}},
        {"four taps",
         three.wait(0.2).then(tapOf(2)),
         {twoFingerTap, twoFingerDoubleTap, twoFingerTap, twoFingerDoubleTap}},
        {"three taps, bound", three, {twoFingerDoubleTap, twoFingerTap}, {2}},
    });
}

TEST(SessionDoubleTapsTest, TapWithAnotherFingerCountInBetweenPreventsADoubleTap) {
    const auto between = [](const Script& middle) {
        return tapOf(2).wait(0.05).then(middle).wait(0.05).then(tapOf(2));
    };
    expectRows(std::vector<Row>{
        {"three fingers between", between(tapOf(3)), {twoFingerTap, threeFingerTap, twoFingerTap}},
        {"five fingers between", between(tapOf(5)), {twoFingerTap, fiveFingerTap, twoFingerTap}},
        {"a touch between them that is no tap keeps the pair",
         between(fingers(1).at(0.1, 0.1).down().hold(0.1).up()),
         {twoFingerTap, cornerTapBottomLeft, twoFingerDoubleTap}},
        {"five fingers first", tapOf(5).wait(0.1).then(tapOf(2)), {fiveFingerTap, twoFingerTap}},
    });
}

TEST(SessionDoubleTapsTest, HeldBackTapFires450MillisecondsAfterItsSession) {
    const auto tap = fingers(3).startingAt(-0.1).down().until(0).up();
    expectReportedGestures(tap, {{0.45, threeFingerTap}}, bound);
    expectReportedGestures(tap, {{0, threeFingerTap}});
}

TEST(SessionDoubleTapsTest, DoubleTapDoesNotCancelASingleTapThatHasFired) {
    // The timer and the frame are due at the same time: the single tap fires first.
    expectReportedGestures(pairEndingAt(0.45), {{0.45, twoFingerTap}, {0.45, twoFingerDoubleTap}},
                           bound);
    expectReportedGestures(pairEndingAt(justBelow(0.45)), {{justBelow(0.45), twoFingerDoubleTap}},
                           bound);
}

TEST(SessionDoubleTapsTest, HeldBackTapStillFiresAfterATapWithMoreFingers) {
    const auto taps = fingers(2).startingAt(-0.1).down().until(0).up().until(0.1).then(
        fingers(3).down().until(0.2).up());
    expectReportedGestures(taps, {{0.45, twoFingerTap}, {0.2 + 0.45, threeFingerTap}}, bound);
}

// When the older tap fires, the recognizer forgets the tap that is currently held back, even if
// that is the newer one. A double tap can then no longer cancel the newer tap.
TEST(SessionDoubleTapsTest, NewerHeldBackTapCannotBeCancelledAfterTheOlderTapHasFired) {
    const auto taps = fingers(2)
                          .startingAt(-0.1)
                          .down()
                          .until(0)
                          .up()
                          .until(0.1)
                          .then(fingers(3).down().until(0.25).up())
                          .until(0.5)
                          .then(fingers(3).down().until(0.6).up());
    expectReportedGestures(
        taps, {{0.45, twoFingerTap}, {0.6, threeFingerDoubleTap}, {0.25 + 0.45, threeFingerTap}},
        bound);
}

TEST(SessionDoubleTapsTest, DoubleTapCancelsOnlyTheNewerHeldBackTap) {
    const auto taps = fingers(2)
                          .startingAt(-0.1)
                          .down()
                          .until(0)
                          .up()
                          .until(0.05)
                          .then(fingers(3).down().until(0.15).up())
                          .until(0.3)
                          .then(fingers(3).down().until(0.4).up());
    expectReportedGestures(taps, {{0.4, threeFingerDoubleTap}, {0.45, twoFingerTap}}, bound);
}

class AskedRecognizer : public testing::Test {
protected:
    AskedRecognizer() {
        recognizer->onGesture = [this](GestureType gesture) {
            reported.push_back(gesture);
        };
        recognizer->doubleTapBindingExists = [this](int count) {
            asked.push_back(count);
            return true;
        };
    }

    void play(const Script& script) {
        for (const TouchFrame& frame : script.frames()) {
            time.advanceTo(frame.timestamp);
            recognizer->process(frame);
        }
    }

    VirtualTime time;
    std::shared_ptr<SessionRecognizer> recognizer = SessionRecognizer::create(time.delayedWork());
    std::vector<int> asked;
    std::vector<GestureType> reported;
};

using SessionDoubleTapBindingTest = AskedRecognizer;

TEST_F(SessionDoubleTapBindingTest, IsQueriedWhenATapMayStartADoubleTap) {
    play(tapOf(2).wait(0.2).then(tapOf(2)).wait(0.2).then(tapOf(4)).wait(0.2).then(tapOf(5)));
    play(fingers(3).startingAt(10).down().hold(0.1).up());
    EXPECT_EQ(asked, (std::vector{2, 4, 3}));
}

TEST_F(SessionDoubleTapBindingTest, IsNotQueriedForOtherGestures) {
    play(fingers(2)
             .down()
             .moveBy(0.3, 0, 0.3)
             .up()
             .wait(1)
             .then(fingers(2).down().hold(1).up().wait(1).then(
                 fingers(1).at(0.1, 0.1).down().hold(0.1).up())));
    EXPECT_EQ(asked, std::vector<int>());
}

TEST_F(SessionDoubleTapBindingTest, TapsAreNotHeldBackWithoutAQueryCallback) {
    recognizer->doubleTapBindingExists = {};
    play(tapOf(2));
    EXPECT_EQ(reported, std::vector{twoFingerTap});
    EXPECT_EQ(time.nextDeadline(), std::numeric_limits<double>::infinity());
}

TEST_F(SessionDoubleTapBindingTest, HeldBackTapDoesNothingAfterTheRecognizerIsDestroyed) {
    play(tapOf(2));
    const std::weak_ptr<SessionRecognizer> watched = recognizer;
    recognizer.reset();
    EXPECT_TRUE(watched.expired()); // the held-back tap does not own the recognizer
    time.runRemaining();
    EXPECT_EQ(reported, std::vector<GestureType>());
}

TEST_F(SessionDoubleTapBindingTest, HeldBackTapWithoutACallbackDoesNothing) {
    play(tapOf(2));
    recognizer->onGesture = {};
    time.runRemaining();
    EXPECT_EQ(reported, std::vector<GestureType>());
}

} // namespace
} // namespace glidemap

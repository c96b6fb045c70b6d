#include "kit/script.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace glidemap::test {
namespace {

using Touches = std::vector<TouchPoint>;

std::vector<double> timesOf(const Script& script, double rate = Script::usualRate) {
    std::vector<double> times;
    for (const TouchFrame& frame : script.frames(rate)) {
        times.push_back(frame.timestamp);
    }
    return times;
}

TEST(ScriptTest, FingersLandSideBySideAndLiftTogether) {
    const auto frames = fingers(2).down().up().frames();
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[0].timestamp, 0);
    EXPECT_EQ(frames[0].touches, (Touches{{1, 0.3, 0.5, true}, {2, 0.38, 0.5, true}}));
    EXPECT_EQ(frames[1].timestamp, 0.008);
    EXPECT_EQ(frames[1].touches, Touches());
}

TEST(ScriptTest, HoldReportsFramesBeforeItsEndButNotAtTheEnd) {
    EXPECT_EQ(timesOf(fingers(1).down().hold(0.02)), (std::vector<double>{0, 0.008, 0.016}));
    EXPECT_EQ(timesOf(fingers(1).down().hold(0.02).up()),
              (std::vector<double>{0, 0.008, 0.016, 0.02}));
    EXPECT_EQ(timesOf(fingers(1).down().hold(0.016).up()), (std::vector<double>{0, 0.008, 0.016}));
}

TEST(ScriptTest, UntilEndsAtExactlyTheGivenTime) {
    for (const double limit : {0.3, 0.8, 1.5, justBelow(0.3), justAbove(0.8)}) {
        for (const double rate : {60.0, 125.0, 250.0}) {
            EXPECT_EQ(timesOf(fingers(2).down().until(limit).up(), rate).back(), limit);
        }
    }
}

TEST(ScriptTest, ScriptMayStartBeforeTimeZero) {
    const auto taps =
        fingers(2).startingAt(-0.01).down().until(0).up().until(0.4375).down().until(0.45).up();
    EXPECT_EQ(timesOf(taps, 100),
              (std::vector<double>{-0.01, 0, 0.4375, 0.4375 + 1 / 100.0, 0.45}));
}

TEST(ScriptTest, MoveEndsWithAFrameAtItsTarget) {
    const auto frames = fingers(1).at(0, 0.5).down().moveBy(0.2, -0.1, 0.016).up().frames();
    ASSERT_EQ(frames.size(), 4U);
    EXPECT_EQ(frames[1].touches, (Touches{{1, 0.1, 0.45, true}}));
    EXPECT_EQ(frames[2].touches, (Touches{{1, 0.2, 0.4, true}}));
    EXPECT_EQ(frames[2].timestamp, 0.016);
    EXPECT_EQ(frames[3].timestamp, 0.024);
}

TEST(ScriptTest, FingersMayLandAndLiftDuringATouch) {
    const auto frames =
        fingers(1).at(0.1, 0.1).down().add(1).addAt(0.9, 0.9).liftFinger(1).lift(1).up().frames();
    ASSERT_EQ(frames.size(), 6U);
    EXPECT_EQ(frames[1].touches, (Touches{{1, 0.1, 0.1, true}, {2, 0.18, 0.1, true}}));
    EXPECT_EQ(frames[2].touches.size(), 3U);
    EXPECT_EQ(frames[3].touches, (Touches{{1, 0.1, 0.1, true}, {3, 0.9, 0.9, true}}));
    EXPECT_EQ(frames[4].touches, (Touches{{1, 0.1, 0.1, true}}));
    EXPECT_EQ(frames[5].touches, Touches());
}

TEST(ScriptTest, ReportsNothingWhileNoFingerTouches) {
    EXPECT_EQ(timesOf(fingers(1).down().hold(0.01).up().wait(0.5).down().hold(0.01).up()),
              (std::vector<double>{0, 0.008, 0.01, 0.51, 0.518, 0.52}));
    const auto tap = fingers(1).down().hold(0.01).up();
    EXPECT_EQ(timesOf(tap.wait(0.5).then(tap)),
              (std::vector<double>{0, 0.008, 0.01, 0.51, 0.518, 0.52}));
}

TEST(ScriptTest, FingerThatLandsAgainHasANewIdentifier) {
    const auto frames = fingers(1).down().up().down().up().frames();
    EXPECT_EQ(frames[0].touches.front().id, 1);
    EXPECT_EQ(frames[2].touches.front().id, 2);
}

TEST(ScriptTest, TurnKeepsDistancesInThePadsPhysicalProportions) {
    const auto frames = fingersAt({{0.5, 0.4}, {0.5, 0.6}}).down().turnBy(1.5, 0.2).frames();
    const auto& last = frames.back().touches;
    const double dx = (last[1].x - last[0].x) * 1.35;
    const double dy = last[1].y - last[0].y;
    EXPECT_NEAR(dx * dx + dy * dy, 0.04, 1e-12);
    EXPECT_LT(dx, 0); // the upper finger moves left: counterclockwise
}

TEST(ScriptTest, CircleEndsAtItsStart) {
    const auto frames = fingers(1).at(0.5, 0.7).down().circle(0.2, 1, 1).frames();
    EXPECT_NEAR(frames.back().touches.front().x, 0.5, 1e-12);
    EXPECT_NEAR(frames.back().touches.front().y, 0.7, 1e-12);
    EXPECT_LT(frames[10].touches.front().x, 0.5); // from the top to the left: counterclockwise
}

TEST(ScriptTest, PrintsTheCodeThatCreatesTheScript) {
    const auto tap = fingers(2).at(0.1, 0.2).down().hold(0.2).up();
    EXPECT_EQ(tap.wait(0.3).then(tap).text(),
              "fingers(2).at(0.1, 0.2).down().hold(0.2).up().wait(0.3)"
              ".then(fingers(2).at(0.1, 0.2).down().hold(0.2).up())");
    EXPECT_EQ(fingersAt({{0, 1}}).down().until(justAbove(0.3)).text(),
              "fingersAt({{0, 1}}).down().until(0.30000000000000004)");
}

TEST(ScriptTest, VerbsReturnANewScriptAndKeepTheOriginal) {
    const auto touch = fingers(2).down().hold(0.1);
    const auto longer = touch.hold(0.1).up();
    EXPECT_EQ(touch.text(), "fingers(2).down().hold(0.1)");
    EXPECT_LT(touch.frames().size(), longer.frames().size());
}

TEST(ScriptTest, ImpossibleVerbsThrowImmediately) {
    const auto hand = fingers(2);
    const auto touch = hand.down();
    EXPECT_THROW(hand.moveBy(0.1, 0, 0.1), std::logic_error);
    EXPECT_THROW(hand.up(), std::logic_error);
    EXPECT_THROW(hand.hold(0.1), std::logic_error);
    EXPECT_THROW(hand.report(), std::logic_error);
    EXPECT_THROW(hand.add(1), std::logic_error);
    EXPECT_THROW(hand.lift(1), std::logic_error);
    EXPECT_THROW(hand.turnBy(1, 1), std::logic_error);
    EXPECT_THROW(touch.down(), std::logic_error);
    EXPECT_THROW(touch.at(0, 0), std::logic_error);
    EXPECT_THROW(touch.lift(2), std::logic_error);
    EXPECT_THROW(touch.lift(3), std::logic_error);
    EXPECT_THROW(touch.lift(0), std::logic_error);
    EXPECT_THROW(touch.liftFinger(2), std::logic_error);
    EXPECT_THROW(touch.moveFinger(2, 0, 0, 1), std::logic_error);
    EXPECT_THROW(touch.moveBy(0, 0, 0), std::logic_error);
    EXPECT_THROW(touch.wait(1), std::logic_error);
    EXPECT_THROW(touch.then(hand.down()), std::logic_error);
    EXPECT_THROW(touch.hold(0.5).until(0.4), std::logic_error);
    EXPECT_THROW(touch.up().up(), std::logic_error);
    EXPECT_THROW(touch.startingAt(1), std::logic_error);
}

} // namespace
} // namespace glidemap::test

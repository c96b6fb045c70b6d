#include "kit/rows.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;

// Returns a script in which a finger lands at `start` and stays down.
Script holding(double x, double y, double start = -0.5) {
    return fingersAt({{x, y}}).startingAt(start).down();
}

// A second finger taps from 0 to 0.1 s, and the holding finger lifts 0.3 s later.
Script tapping(const Script& holder, double x, double y) {
    return holder.until(0).addAt(x, y).until(0.1).lift(1).hold(0.3).up();
}

TEST(SessionFixAndTapTest, TapBesideARestingFingerReportsItsSide) {
    const auto holder = fingersAt({{0.5, 0.5}}).down().hold(0.4);
    const auto tapAt = [&](double x, double y) {
        return holder.addAt(x, y).hold(0.1).lift(1).hold(0.5).up();
    };
    expectRowsInEveryVariant(std::vector<Row>{
        {"right", tapAt(0.6, 0.5), {fixAndTapRight}},
        {"left", tapAt(0.3, 0.55), {fixAndTapLeft}},
        {"above", tapAt(0.45, 0.8), {fixAndTapAbove}},
        {"below", tapAt(0.6, 0.2), {fixAndTapBelow}},
        {"too close", tapAt(0.53, 0.52), {}},
        {"the tap is long", holder.addAt(0.7, 0.5).hold(0.5).lift(1).hold(0.1).up(), {}},
        {"the tap drifts",
         holder.addAt(0.7, 0.5).moveFinger(1, 0.06, 0, 0.1).lift(1).hold(0.1).up(),
         {}},
        {"the holding finger has only just landed",
         fingersAt({{0.5, 0.5}}).down().hold(0.15).addAt(0.7, 0.5).hold(0.1).lift(1).hold(0.2).up(),
         {}},
        {"the holding finger moves",
         fingersAt({{0.3, 0.5}})
             .down()
             .moveBy(0.1, 0, 0.4)
             .addAt(0.7, 0.5)
             .hold(0.1)
             .lift(1)
             .hold(0.5)
             .up(),
         {}},
        {"the holding finger leaves first",
         holder.addAt(0.7, 0.5).hold(0.1).liftFinger(0).hold(0.1).up(),
         {}},
    });
}

TEST(SessionFixAndTapTest, IsReportedWhenTheTapEnds) {
    expectReportedGestures(tapping(holding(0.5, 0.5), 0.6, 0.5), {{0.1, fixAndTapRight}});
}

TEST(SessionFixAndTapTest, RejectsATapLongerThan400Milliseconds) {
    const auto lasting = [](double time) {
        return holding(0.5, 0.5).until(0).addAt(0.7, 0.5).until(time).lift(1).hold(0.1).up();
    };
    expectRows(std::vector<Row>{
        {"below", lasting(justBelow(0.4)), {fixAndTapRight}},
        {"at the limit", lasting(0.4), {fixAndTapRight}},
        {"above", lasting(justAbove(0.4)), {}},
    });
}

TEST(SessionFixAndTapTest, RejectsATapDriftAboveTheMaximum) {
    const auto drifting = [](double drift) {
        return holding(0.5, 0.5)
            .until(0)
            .addAt(0.8, 0)
            .moveFinger(1, 0, drift, 0.1)
            .lift(1)
            .hold(0.3)
            .up();
    };
    expectRows(std::vector<Row>{
        {"below", drifting(justBelow(0.04)), {fixAndTapBelow}},
        {"at the limit", drifting(0.04), {fixAndTapBelow}},
        {"above", drifting(justAbove(0.04)), {}},
    });
}

TEST(SessionFixAndTapTest, HoldingFingerMustLandAtLeast200MillisecondsBeforeTheTap) {
    expectRows(std::vector<Row>{
        {"below", tapping(holding(0.5, 0.5, justAbove(-0.2)), 0.7, 0.5), {}},
        {"at the limit", tapping(holding(0.5, 0.5, -0.2), 0.7, 0.5), {fixAndTapRight}},
        {"above", tapping(holding(0.5, 0.5, justBelow(-0.2)), 0.7, 0.5), {fixAndTapRight}},
    });
}

TEST(SessionFixAndTapTest, RejectsAHoldDriftAboveTheMaximum) {
    const auto drifting = [](double drift) {
        return tapping(holding(0, 0.5).moveBy(drift, 0, 0.1), 0.7, 0.5);
    };
    expectRows(std::vector<Row>{
        {"below", drifting(justBelow(0.05)), {fixAndTapRight}},
        {"at the limit", drifting(0.05), {fixAndTapRight}},
        {"above", drifting(justAbove(0.05)), {}},
        {"above and back",
         tapping(holding(0, 0.5).moveBy(0.051, 0, 0.1).moveBy(-0.051, 0, 0.1), 0.7, 0.5),
         {}},
    });
}

TEST(SessionFixAndTapTest, RejectsATapTooCloseToTheHoldingFinger) {
    const auto origin = holding(0, 0);
    expectRows(std::vector<Row>{
        {"right, below", tapping(origin, justBelow(0.05), 0), {}},
        {"right, at the limit", tapping(origin, 0.05, 0), {fixAndTapRight}},
        {"right, above", tapping(origin, justAbove(0.05), 0), {fixAndTapRight}},
        {"above, below the limit", tapping(origin, 0, justBelow(0.05)), {}},
        {"above, at the limit", tapping(origin, 0, 0.05), {fixAndTapAbove}},
        {"above, above the limit", tapping(origin, 0, justAbove(0.05)), {fixAndTapAbove}},
        {"left, below", tapping(holding(justBelow(0.05), 0), 0, 0), {}},
        {"left, at the limit", tapping(holding(0.05, 0), 0, 0), {fixAndTapLeft}},
        {"below, below the limit", tapping(holding(0, justBelow(0.05)), 0, 0), {}},
        {"below, at the limit", tapping(holding(0, 0.05), 0, 0), {fixAndTapBelow}},
        {"the larger axis counts, not the distance", tapping(origin, 0.04, 0.04), {}},
    });
}

TEST(SessionFixAndTapTest, DiagonalTapCountsAsLeftOrRight) {
    const auto origin = holding(0, 0);
    expectRows(std::vector<Row>{
        {"as far up as right", tapping(origin, 0.25, 0.25), {fixAndTapRight}},
        {"a little less up", tapping(origin, 0.25, justBelow(0.25)), {fixAndTapRight}},
        {"a little more up", tapping(origin, 0.25, justAbove(0.25)), {fixAndTapAbove}},
        {"as far down as left", tapping(holding(0.25, 0.25), 0, 0), {fixAndTapLeft}},
        {"as far up as left", tapping(holding(0.25, 0), 0, 0.25), {fixAndTapLeft}},
    });
}

TEST(SessionFixAndTapTest, SideIsRelativeToTheCurrentPositionOfTheHoldingFinger) {
    expectRows(std::vector<Row>{
        {"left of its start, right of its current position",
         tapping(holding(0.54, 0.5).moveBy(-0.04, 0, 0.1), 0.535, 0.56),
         {fixAndTapAbove}},
        {"a drifting tap counts where it landed",
         holding(0.5, 0.5)
             .until(0)
             .addAt(0.56, 0.5)
             .moveFinger(1, -0.035, 0, 0.1)
             .lift(1)
             .hold(0.3)
             .up(),
         {fixAndTapRight}},
        {"close to its start, far from its current position",
         tapping(holding(0.54, 0.5).moveBy(-0.04, 0, 0.1), 0.56, 0.5),
         {fixAndTapRight}},
    });
}

TEST(SessionFixAndTapTest, EachOfSeveralTapsBesideARestingFingerIsReported) {
    const auto tapTwice = fingersAt({{0.5, 0.5}})
                              .down()
                              .hold(0.3)
                              .addAt(0.7, 0.5)
                              .hold(0.1)
                              .lift(1)
                              .hold(0.3)
                              .addAt(0.5, 0.8)
                              .hold(0.1)
                              .lift(1)
                              .hold(0.3);
    expectRowsInEveryVariant(std::vector<Row>{
        {"twice", tapTwice.up(), {fixAndTapRight, fixAndTapAbove}},
        {"thrice",
         tapTwice.addAt(0.3, 0.5).hold(0.1).lift(1).hold(0.3).up(),
         {fixAndTapRight, fixAndTapAbove, fixAndTapLeft}},
    });
}

TEST(SessionFixAndTapTest, NoOtherGestureIsReportedWhenASessionWithAFixAndTapEnds) {
    expectRows(std::vector<Row>{
        {"short enough for a tap of two fingers",
         fingersAt({{0.5, 0.5}})
             .down()
             .until(0.2)
             .addAt(0.7, 0.5)
             .until(0.25)
             .lift(1)
             .until(0.29)
             .up(),
         {fixAndTapRight}},
        {"a tap before the hold is long enough is a two-finger tap",
         fingersAt({{0.5, 0.5}})
             .down()
             .until(0.19)
             .addAt(0.7, 0.5)
             .until(0.25)
             .lift(1)
             .until(0.29)
             .up(),
         {twoFingerTap}},
    });
}

TEST(SessionFixAndTapTest, FiresEvenAfterAnotherGestureConsumedTheSession) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"beside a long press",
         fingersAt({{0.3, 0.5}, {0.3, 0.55}})
             .down()
             .hold(1)
             .addAt(0.6, 0.5)
             .hold(0.1)
             .lift(1)
             .hold(0.5)
             .up(),
         {twoFingerLongPress, fixAndTapRight}},
    });
}

TEST(SessionFixAndTapTest, HoldAndTapSuppressesLongPress) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"a second finger stays",
         fingersAt({{0.3, 0.5}})
             .down()
             .hold(0.3)
             .addAt(0.6, 0.5)
             .hold(0.1)
             .lift(1)
             .hold(0.1)
             .addAt(0.6, 0.5)
             .hold(1.2)
             .up(),
         {fixAndTapRight}},
    });
}

TEST(SessionFixAndTapTest, TwoFingersThatTapBesideARestingFingerReportTwoGestures) {
    const auto reported = gesturesOf(perform(fingersAt({{0.3, 0.5}})
                                                 .down()
                                                 .hold(0.3)
                                                 .addAt(0.6, 0.5)
                                                 .addAt(0.7, 0.5)
                                                 .hold(0.1)
                                                 .lift(2)
                                                 .hold(0.3)
                                                 .up()));
    EXPECT_EQ(reported, (std::vector{fixAndTapRight, fixAndTapRight}));
}

// If both fingers lift in one report, either track may end first. Only a finger that is still down
// can be the holding finger.
TEST(SessionFixAndTapTest, HoldingAndTappingFingersThatLiftTogetherMakeAtMostOneGesture) {
    auto frames = fingersAt({{0.5, 0.5}}).down().hold(0.3).addAt(0.7, 0.5).hold(0.1).up().frames();
    const auto tapLeavesLast = gesturesOf(perform(frames));
    for (TouchFrame& frame : frames) {
        for (TouchPoint& touch : frame.touches) {
            touch.id = -touch.id;
        }
    }
    const auto tapLeavesFirst = gesturesOf(perform(frames));
    for (const auto& reported : {tapLeavesLast, tapLeavesFirst}) {
        EXPECT_TRUE(reported.empty() || reported == std::vector{fixAndTapRight});
    }
}

} // namespace
} // namespace glidemap

#include "kit/rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;
using std::numbers::pi;

const auto verticalPair = fingersAt({{0.5, 0.4}, {0.5, 0.6}}).down();

TEST(SessionMotionTest, FingersThatMoveTogetherSwipe) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"two fingers right and a little up",
         fingers(2).down().moveBy(0.25, 0.1, 0.3).up(),
         {twoFingerSwipeRight}},
        {"too far up for a swipe right", fingers(2).down().moveBy(0.2, 0.15, 0.3).up(), {}},
        {"three fingers up", fingers(3).down().moveBy(0, 0.3, 0.3).up(), {threeFingerSwipeUp}},
        {"not far enough", fingers(3).down().moveBy(0.1, 0, 0.3).up(), {}},
        {"too slow", fingers(4).down().moveBy(0.3, 0, 0.9).up(), {}},
        {"a finger moves in the other direction",
         fingersAt({{0.1, 0.4}, {0.1, 0.6}, {0.9, 0.5}})
             .down()
             .moveAll({{0.7, 0.4}, {0.7, 0.6}, {0.7, 0.5}}, 0.4)
             .up(),
         {}},
        {"a finger lands late",
         fingers(3).at(0.2, 0.5).down().hold(0.03).add(1).moveBy(0.3, 0, 0.3).up(),
         {fourFingerSwipeRight}},
        {"fingers leave one after another",
         fingers(3).down().moveBy(0.3, 0, 0.3).lift(1).hold(0.02).lift(1).hold(0.02).up(),
         {threeFingerSwipeRight}},
        {"six fingers", fingers(6).at(0.1, 0.5).down().moveBy(0.3, 0, 0.3).up(), {}},
        {"one finger in the middle of the pad", fingers(1).down().moveBy(0.3, 0, 0.3).up(), {}},
    });
}

TEST(SessionMotionTest, SwipeRequiresThatAllFingersMoveInOneDirection) {
    expectRows(std::vector<Row>{
        {"0.2 right and 0.1 up",
         fingers(2).down().moveBy(0.2, 0.1, 0.3).up(),
         {twoFingerSwipeRight}},
        {"a finger stays behind",
         fingersAt({{0.1, 0.4}, {0.1, 0.6}, {0.9, 0.5}})
             .down()
             .moveAll({{0.7, 0.4}, {0.7, 0.6}, {0.9, 0.5}}, 0.4)
             .up(),
         {}},
        {"0.2 right and 0.15 up", fingers(2).down().moveBy(0.2, 0.15, 0.3).up(), {}},
    });
}

TEST(SessionMotionTest, RejectsASwipeLongerThan800Milliseconds) {
    const auto moved = fingers(3).down().moveBy(0.3, 0, 0.3);
    expectRows(std::vector<Row>{
        {"below", moved.until(justBelow(0.8)).up(), {threeFingerSwipeRight}},
        {"at the limit", moved.until(0.8).up(), {threeFingerSwipeRight}},
        {"above", moved.until(justAbove(0.8)).up(), {}},
        {"0.81 s", moved.until(0.81).up(), {}},
    });
}

TEST(SessionMotionTest, FingerThatMovesInwardsFromAnEdgeMakesAnEdgeSwipe) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"from the left",
         fingers(1).at(0.02, 0.5).down().moveBy(0.3, 0.05, 0.4).up(),
         {edgeSwipeFromLeft}},
        {"from the top",
         fingers(1).at(0.5, 0.98).down().moveBy(0.05, -0.3, 0.4).up(),
         {edgeSwipeFromTop}},
        {"too slow", fingers(1).at(0.02, 0.5).down().moveBy(0.3, 0, 0.7).up(), {}},
        {"two fingers swipe instead",
         fingersAt({{0.02, 0.4}, {0.02, 0.6}}).down().moveBy(0.3, 0, 0.4).up(),
         {twoFingerSwipeRight}},
    });
    expectRows(std::vector<Row>{
        {"0.25 inwards and 0.1 sideways",
         fingers(1).at(0.02, 0.5).down().moveBy(0.25, 0.1, 0.4).up(),
         {edgeSwipeFromLeft}},
        {"0.25 inwards and 0.13 sideways",
         fingers(1).at(0.02, 0.5).down().moveBy(0.25, 0.13, 0.4).up(),
         {}},
        {"down and right from the top left corner: the left edge is checked first",
         fingers(1).at(0.02, 0.98).down().moveBy(0.3, -0.1, 0.4).up(),
         {edgeSwipeFromLeft}},
        {"ending at the limit",
         fingers(1).at(0.02, 0.5).down().moveBy(0.3, 0, 0.3).until(0.6).up(),
         {edgeSwipeFromLeft}},
        {"ending past the limit",
         fingers(1).at(0.02, 0.5).down().moveBy(0.3, 0, 0.3).until(justAbove(0.6)).up(),
         {}},
    });
}

TEST(SessionMotionTest, TapInACornerIsACornerTap) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"top right",
         fingers(1).at(0.9, 0.9).down().moveBy(0.01, 0, 0.15).up(),
         {cornerTapTopRight}},
        {"at the top", fingers(1).at(0.5, 0.9).down().hold(0.2).up(), {}},
        {"too long", fingers(1).at(0.9, 0.9).down().hold(0.35).up(), {}},
        {"two fingers in the corner tap instead",
         fingers(2).at(0.05, 0.1).down().hold(0.2).up(),
         {twoFingerTap}},
    });
    expectRows(std::vector<Row>{
        {"at x = 0.82", fingers(1).at(0.82, 0.9).down().hold(0.2).up(), {}},
        {"two doubles further",
         fingers(1).at(0.8200000000000001, 0.9).down().hold(0.2).up(),
         {cornerTapTopRight}},
        {"ending at the limit",
         fingers(1).at(0.9, 0.9).down().until(0.3).up(),
         {cornerTapTopRight}},
        {"ending past the limit", fingers(1).at(0.9, 0.9).down().until(justAbove(0.3)).up(), {}},
    });
}

TEST(SessionMotionTest, FingerThatMovesInALoopDrawsACircle) {
    const auto top = fingers(1).at(0.5, 0.7).down();
    expectRowsInEveryVariant(std::vector<Row>{
        {"anticlockwise", top.circle(0.2, 1, 1).up(), {drawCircleCounterclockwise}},
        {"clockwise", top.circle(0.2, -1, 1).up(), {drawCircleClockwise}},
        {"almost a full turn", top.circle(0.2, 0.9, 1).up(), {drawCircleCounterclockwise}},
        {"half a turn", top.circle(0.2, 0.5, 1).up(), {}},
        {"two turns", top.circle(0.2, 2, 2).up(), {drawCircleCounterclockwise}},
        {"too slow", top.circle(0.2, 1, 3.2).up(), {}},
        {"too small", top.circle(0.03, 1, 1).up(), {}},
        {"two fingers in a loop", fingers(2).at(0.4, 0.7).down().circle(0.2, 1, 1).up(), {}},
    });
}

TEST(SessionMotionTest, CircleRequiresAPathOfTwelvePoints) {
    // The path has one point every 8 ms, plus the landing point.
    const auto drawn = [](int frames) {
        return fingers(1).at(0.5, 0.7).down().circle(0.2, 1, frames * 0.008).until(0.5).up();
    };
    expectRows(std::vector<Row>{
        {"eleven", drawn(10), {}},
        {"twelve", drawn(11), {drawCircleCounterclockwise}},
        {"a slow finger has more points, but they are too close to be kept",
         fingers(1).at(0.5, 0.51).down().circle(0.01, 1, 1).up(),
         {}},
    });
}

TEST(SessionMotionTest, SpreadingFingersPinchAndTurningFingersRotate) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"spreading", verticalPair.spreadBy(1.8, 0.4).up(), {pinchOut}},
        {"closing", fingersAt({{0.5, 0.3}, {0.5, 0.7}}).down().spreadBy(0.5, 0.4).up(), {pinchIn}},
        {"spreading too little", verticalPair.spreadBy(1.4, 0.4).up(), {}},
        {"turning", verticalPair.turnBy(1, 0.4).up(), {rotateCounterclockwise}},
        {"turning the other way", verticalPair.turnBy(-1, 0.4).up(), {rotateClockwise}},
        {"turning too little", verticalPair.turnBy(0.5, 0.4).up(), {}},
        {"spreading a little and turning",
         verticalPair.spreadBy(1.4, 0.2).turnBy(0.8, 0.3).up(),
         {rotateCounterclockwise}},
        {"slowly", verticalPair.spreadBy(2, 1.3).up(), {pinchOut}},
        {"too slowly", verticalPair.spreadBy(2, 1.6).up(), {}},
        {"three fingers spreading",
         fingersAt({{0.4, 0.4}, {0.5, 0.6}, {0.6, 0.4}}).down().spreadBy(2, 0.4).up(),
         {}},
    });
}

TEST(SessionMotionTest, RejectsAPinchLongerThan1500Milliseconds) {
    const auto spread = verticalPair.spreadBy(2, 0.5);
    expectRows(std::vector<Row>{
        {"below", spread.until(justBelow(1.5)).up(), {pinchOut}},
        {"at the limit", spread.until(1.5).up(), {pinchOut}},
        {"above", spread.until(justAbove(1.5)).up(), {}},
    });
}

TEST(SessionMotionTest, FingersThatSpreadVerticallyPinch) {
    const auto pair = fingersAt({{0.5, 0}, {0.5, 0.2}}).down();
    expectRows(std::vector<Row>{
        {"to 0.35", pair.moveFinger(1, 0, 0.15, 0.3).up(), {pinchOut}},
        {"to 0.28", pair.moveFinger(1, 0, 0.08, 0.3).up(), {}},
    });
}

TEST(SessionMotionTest, PinchTakesPrecedenceOverASwipe) {
    expectRowsInEveryVariant(std::vector<Row>{
        {"both fingers right, one much farther",
         fingersAt({{0.1, 0.5}, {0.3, 0.5}}).down().moveAll({{0.3, 0.5}, {0.8, 0.5}}, 0.4).up(),
         {pinchOut}},
        {"three fingers make a swipe",
         fingersAt({{0.1, 0.5}, {0.3, 0.5}, {0.2, 0.4}})
             .down()
             .moveAll({{0.3, 0.5}, {0.8, 0.5}, {0.5, 0.4}}, 0.4)
             .up(),
         {threeFingerSwipeRight}},
    });
}

TEST(SessionMotionTest, TwoFingersDoNotPinchIfOneOfThemHasLiftedAndLandedAgain) {
    expectRows(std::vector<Row>{
        {"a finger slips off for a moment",
         verticalPair.hold(0.05).lift(1).addAt(0.5, 0.6).spreadBy(2, 0.3).up(),
         {}},
        {"during a swipe, it is still a swipe",
         fingers(2).down().moveBy(0.1, 0, 0.1).lift(1).add(1).moveBy(0.25, 0, 0.2).up(),
         {twoFingerSwipeRight}},
    });
}

// The loop starts at the left rim and ends far enough to the right for an edge swipe.
TEST(SessionMotionTest, CircleTakesPrecedenceOverAnEdgeSwipe) {
    const double radius = 0.45;
    const double opening = 1.2; // in radians, at the top
    std::vector<TouchFrame> frames;
    for (int step = 0; step <= 60; ++step) {
        const double angle = pi / 2 + opening / 2 + (2 * pi - opening) * step / 60;
        const double x = 0.02 + radius * (std::cos(angle) + std::sin(opening / 2)) / 1.35;
        frames.push_back({step * 0.008, {{1, x, 0.5 + radius * std::sin(angle), true}}});
    }
    const auto line = std::vector{frames.front(), frames.back()};
    frames.push_back({0.5, {}});
    EXPECT_EQ(gesturesOf(perform(frames)), std::vector{drawCircleCounterclockwise});
    EXPECT_EQ(gesturesOf(perform(std::vector{line[0], line[1], frames.back()})),
              std::vector{edgeSwipeFromLeft});
}

} // namespace
} // namespace glidemap

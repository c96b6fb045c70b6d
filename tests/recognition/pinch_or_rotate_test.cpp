#include "kit/printers.h"
#include "kit/script.h"
#include "made_tracks.h"
#include "recognition/pinch_or_rotate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace glidemap {
namespace {

using enum GestureType;
using std::numbers::pi;
using test::justAbove;
using test::justBelow;

// One finger stays at the origin, so the distance between the fingers is that of the other finger
// from the origin.
std::optional<GestureType> otherMoves(PadPoint from, PadPoint to) {
    return pinchOrRotateOf(trackThrough({{0, 0}}), trackThrough({from, to}));
}

// Moves the other finger vertically, because vertical distances are not stretched.
std::optional<GestureType> distanceChanges(double from, double to) {
    return otherMoves({0, from}, {0, to});
}

// Returns the position at this distance and angle from the origin. The distance is in pad heights;
// the pad is 1.35 times as wide as high.
PadPoint polar(double radius, double angle) {
    return {radius * std::cos(angle) / 1.35, radius * std::sin(angle)};
}

TEST(PinchOrRotateTest, SpreadingOrClosingFingersPinch) {
    EXPECT_EQ(distanceChanges(0.2, 0.35), pinchOut);
    EXPECT_EQ(distanceChanges(0.35, 0.2), pinchIn);
    EXPECT_EQ(distanceChanges(0.2, 0.28), std::nullopt);
    EXPECT_EQ(distanceChanges(0.2, 0.2), std::nullopt);
}

TEST(PinchOrRotateTest, FingerOrderDoesNotMatter) {
    const Track still = trackThrough({{0.5, 0.5}});
    const Track moving = trackThrough({{0.5, 0.7}, {0.5, 0.95}});
    EXPECT_EQ(pinchOrRotateOf(still, moving), pinchOut);
    EXPECT_EQ(pinchOrRotateOf(moving, still), pinchOut);
    const Track turning = trackThrough({{0.5, 0.7}, {0.36, 0.5}});
    EXPECT_EQ(pinchOrRotateOf(still, turning), rotateCounterclockwise);
    EXPECT_EQ(pinchOrRotateOf(turning, still), rotateCounterclockwise);
}

TEST(PinchOrRotateTest, IgnoresOverlappingFingers) {
    EXPECT_EQ(distanceChanges(0, 0.5), std::nullopt);
    EXPECT_EQ(distanceChanges(justBelow(0.02), 0.5), std::nullopt);
    EXPECT_EQ(distanceChanges(0.02, 0.5), std::nullopt);
    EXPECT_EQ(distanceChanges(justAbove(0.02), 0.5), pinchOut);
}

TEST(PinchOrRotateTest, PinchRequiresAMinimumDistanceChange) {
    ASSERT_EQ(0.245 - 0.125, 0.12);
    EXPECT_EQ(distanceChanges(0.125, justBelow(0.245)), std::nullopt);
    EXPECT_EQ(distanceChanges(0.125, 0.245), pinchOut);
    EXPECT_EQ(distanceChanges(0.125, justAbove(0.245)), pinchOut);
    EXPECT_EQ(distanceChanges(justBelow(0.245), 0.125), std::nullopt);
    EXPECT_EQ(distanceChanges(0.245, 0.125), pinchIn);
    EXPECT_EQ(distanceChanges(justAbove(0.245), 0.125), pinchIn);
}

TEST(PinchOrRotateTest, PinchOutRejectsADistanceRatioBelowTheMinimum) {
    ASSERT_EQ(0.725 / 0.5, 1.45);
    EXPECT_EQ(distanceChanges(0.5, justBelow(0.725)), std::nullopt);
    EXPECT_EQ(distanceChanges(0.5, 0.725), pinchOut);
    EXPECT_EQ(distanceChanges(0.5, justAbove(0.725)), pinchOut);
}

TEST(PinchOrRotateTest, PinchInRejectsADistanceRatioAboveTheMaximum) {
    ASSERT_EQ(0.35 / 0.5, 0.7);
    EXPECT_EQ(distanceChanges(0.5, justAbove(0.35)), std::nullopt);
    EXPECT_EQ(distanceChanges(0.5, 0.35), pinchIn);
    EXPECT_EQ(distanceChanges(0.5, justBelow(0.35)), pinchIn);
}

TEST(PinchOrRotateTest, DistancesAreMeasuredInThePadsPhysicalProportions) {
    // 0.1 across the pad is 0.135 of the pad's height, so the change reaches 0.12 only after
    // stretching.
    EXPECT_EQ(otherMoves({0.1, 0}, {0.195, 0}), pinchOut);
    EXPECT_EQ(otherMoves({0, 0.1}, {0, 0.195}), std::nullopt);
}

TEST(PinchOrRotateTest, TurningFingersRotate) {
    EXPECT_EQ(otherMoves(polar(0.3, 0.2), polar(0.3, 1.2)), rotateCounterclockwise);
    EXPECT_EQ(otherMoves(polar(0.3, 1.2), polar(0.3, 0.2)), rotateClockwise);
    EXPECT_EQ(otherMoves(polar(0.3, 0.2), polar(0.3, 0.8)), std::nullopt);
}

TEST(PinchOrRotateTest, VerticalFingersThatTurnAndSpreadSlightlyMakeARotation) {
    EXPECT_EQ(otherMoves(polar(0.2, pi / 2), polar(0.28, pi / 2 + 0.8)), rotateCounterclockwise);
    EXPECT_EQ(otherMoves(polar(0.2, pi / 2), polar(0.28, pi / 2 - 0.8)), rotateClockwise);
    EXPECT_EQ(otherMoves(polar(0.2, pi / 2), polar(0.28, pi / 2 + 0.6)), std::nullopt);
}

TEST(PinchOrRotateTest, RotationRequiresAMinimumAngle) {
    // The moving finger starts directly to the right of the other one, at the angle 0, so the
    // rotation's angle is exactly what std::atan2 returns.
    const auto turn = [](double y) {
        return std::atan2(y, 0.2 * 1.35);
    };
    for (const double sign : {1.0, -1.0}) {
        const auto gesture = sign > 0 ? rotateCounterclockwise : rotateClockwise;
        const auto rotates = [&](double y) {
            return otherMoves({0.2, 0}, {0.2, sign * y}).has_value();
        };
        const auto [below, reached] = turningPoint(0.1, 0.25, rotates);
        EXPECT_LT(turn(below), 0.7);
        EXPECT_GE(turn(reached), 0.7);
        EXPECT_EQ(reached, justAbove(below));
        EXPECT_EQ(otherMoves({0.2, 0}, {0.2, sign * below}), std::nullopt);
        EXPECT_EQ(otherMoves({0.2, 0}, {0.2, sign * reached}), gesture);
    }
}

TEST(PinchOrRotateTest, RotationAllowsOnlyASmallDistanceChange) {
    // The moving finger starts directly above the resting one and ends directly to its left, so the
    // distances are `from` and `to`.
    const auto quarterTurn = [](double from, double to) {
        return otherMoves({0, from}, {-to / 1.35, 0});
    };
    ASSERT_EQ(0.62 / 1.35 * 1.35 - 0.5, 0.12);
    EXPECT_EQ(quarterTurn(0.5, 0.61), rotateCounterclockwise);
    EXPECT_EQ(quarterTurn(0.5, 0.62 - 1e-15), rotateCounterclockwise);
    EXPECT_EQ(quarterTurn(0.5, 0.62), std::nullopt); // too much to rotate, too little to pinch
    EXPECT_EQ(quarterTurn(0.5, 0.63), std::nullopt);
    EXPECT_EQ(quarterTurn(0.5, 0.39), rotateCounterclockwise);
    EXPECT_EQ(quarterTurn(0.5, 0.37), std::nullopt);
    EXPECT_EQ(quarterTurn(0.25, 0.36), rotateCounterclockwise);
    EXPECT_EQ(quarterTurn(0.25, 0.38), pinchOut); // the smallest relative change of a pinch
}

TEST(PinchOrRotateTest, TurnIsWrappedToTheShorterDirection) {
    const double degree = pi / 180;
    EXPECT_EQ(otherMoves(polar(0.3, 150 * degree), polar(0.3, -150 * degree)),
              rotateCounterclockwise);
    EXPECT_EQ(otherMoves(polar(0.3, -150 * degree), polar(0.3, 150 * degree)), rotateClockwise);
    EXPECT_EQ(otherMoves(polar(0.3, 170 * degree), polar(0.3, -170 * degree)), std::nullopt);
    EXPECT_EQ(otherMoves(polar(0.3, 100 * degree), polar(0.3, -100 * degree)),
              rotateCounterclockwise); // 160 degrees, not 200 degrees in the other direction
}

TEST(PinchOrRotateTest, PinchTakesPrecedenceOverRotation) {
    EXPECT_EQ(otherMoves(polar(0.2, 0), polar(0.4, 1)), pinchOut);
    EXPECT_EQ(otherMoves(polar(0.4, 0), polar(0.2, 1)), pinchIn);
}

TEST(PinchOrRotateTest, OnlyTheStartAndEndPositionsMatter) {
    EXPECT_EQ(pinchOrRotateOf(trackThrough({{0, 0}}), trackThrough({{0, 0.2}, {0, 0.9}, {0, 0.2}})),
              std::nullopt);
}

TEST(PinchOrRotateTest, RejectsNonFinitePositions) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(otherMoves({0, nan}, {0, 0.5}), std::nullopt);
    EXPECT_EQ(otherMoves({0, 0.5}, {nan, 0.5}), std::nullopt);
}

} // namespace
} // namespace glidemap

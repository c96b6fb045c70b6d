#include "kit/printers.h"
#include "kit/script.h"
#include "made_tracks.h"
#include "recognition/swipe.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

using enum GestureType;
using test::justAbove;
using test::justBelow;
using Tracks = std::vector<Track>;

constexpr double quick = 0.3;

Track moved(double dx, double dy) {
    return trackThrough({{0, 0}, {dx, dy}});
}

std::optional<GestureType> twoFingers(double dx, double dy, double duration = quick) {
    return swipeOf(Tracks{moved(dx, dy), moved(dx, dy)}, 2, duration);
}

TEST(SwipeTest, FingerCountAndDirectionSelectTheGesture) {
    const struct {
        int fingers;
        GestureType left, right, up, down;
    } rows[] = {
        {2, twoFingerSwipeLeft, twoFingerSwipeRight, twoFingerSwipeUp, twoFingerSwipeDown},
        {3, threeFingerSwipeLeft, threeFingerSwipeRight, threeFingerSwipeUp, threeFingerSwipeDown},
        {4, fourFingerSwipeLeft, fourFingerSwipeRight, fourFingerSwipeUp, fourFingerSwipeDown},
        {5, fiveFingerSwipeLeft, fiveFingerSwipeRight, fiveFingerSwipeUp, fiveFingerSwipeDown},
    };
    for (const auto& [fingers, left, right, up, down] : rows) {
        const auto count = static_cast<std::size_t>(fingers);
        EXPECT_EQ(swipeOf(Tracks(count, moved(-0.3, 0)), fingers, quick), left);
        EXPECT_EQ(swipeOf(Tracks(count, moved(0.3, 0)), fingers, quick), right);
        EXPECT_EQ(swipeOf(Tracks(count, moved(0, 0.3)), fingers, quick), up);
        EXPECT_EQ(swipeOf(Tracks(count, moved(0, -0.3)), fingers, quick), down);
    }
}

TEST(SwipeTest, FewerThanTwoOrMoreThanFiveFingersDoNotSwipe) {
    for (const int fingers : {-1, 0, 1, 6, 7, 11, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(swipeOf(Tracks(2, moved(0.3, 0)), fingers, quick), std::nullopt) << fingers;
    }
}

TEST(SwipeTest, UsesTheSessionFingerCountNotTheNumberOfTracks) {
    EXPECT_EQ(swipeOf(Tracks(3, moved(0.3, 0)), 2, quick), twoFingerSwipeRight);
}

TEST(SwipeTest, RejectsASwipeLongerThan800Milliseconds) {
    EXPECT_EQ(twoFingers(0.3, 0, justBelow(0.8)), twoFingerSwipeRight);
    EXPECT_EQ(twoFingers(0.3, 0, 0.8), twoFingerSwipeRight);
    EXPECT_EQ(twoFingers(0.3, 0, justAbove(0.8)), std::nullopt);
    EXPECT_EQ(twoFingers(0.3, 0, 0.81), std::nullopt);
}

TEST(SwipeTest, RejectsADistanceBelowTheMinimum) {
    EXPECT_EQ(twoFingers(justBelow(0.15), 0), std::nullopt);
    EXPECT_EQ(twoFingers(0.15, 0), twoFingerSwipeRight);
    EXPECT_EQ(twoFingers(justAbove(0.15), 0), twoFingerSwipeRight);
    EXPECT_EQ(twoFingers(0, -justBelow(0.15)), std::nullopt);
    EXPECT_EQ(twoFingers(0, -0.15), twoFingerSwipeDown);
}

TEST(SwipeTest, UsesTheMeanDisplacementNotTheSlowestFinger) {
    const Tracks tracks = {moved(0.25, 0), moved(0.0625, 0)};
    EXPECT_EQ(meanDisplacement(tracks), (PadPoint{0.15625, 0}));
    EXPECT_EQ(swipeOf(tracks, 2, quick), twoFingerSwipeRight);
    EXPECT_EQ(swipeOf(Tracks{moved(0.25, 0), moved(0.03125, 0)}, 2, quick), std::nullopt);
}

TEST(SwipeTest, LengthIsMeasuredInNormalisedUnits) {
    EXPECT_EQ(twoFingers(0.14, 0), std::nullopt); // stretched, it would be 0.189, a swipe
}

TEST(SwipeTest, FingerThatMovesAgainstTheOthersPreventsASwipe) {
    EXPECT_EQ(swipeOf(Tracks{moved(0.5, 0), moved(0.5, 0), moved(-0.01, 0)}, 3, quick),
              std::nullopt);
    EXPECT_EQ(swipeOf(Tracks{moved(0.5, 0), moved(0.5, 0), moved(0.01, 0)}, 3, quick),
              threeFingerSwipeRight);
}

TEST(SwipeTest, FingerThatMovesSidewaysPreventsASwipe) {
    EXPECT_EQ(swipeOf(Tracks{moved(0.5, 0), moved(0.5, 0), moved(0, 0)}, 3, quick), std::nullopt);
    const auto across = [](double along) {
        return Tracks{moved(0.5, 0), moved(along, 0.25), moved(along, -0.25)};
    };
    EXPECT_EQ(swipeOf(across(-1e-12), 3, quick), std::nullopt);
    EXPECT_EQ(swipeOf(across(0), 3, quick), std::nullopt);
    EXPECT_EQ(swipeOf(across(1e-12), 3, quick), threeFingerSwipeRight);
}

TEST(SwipeTest, RejectsADiagonalMovement) {
    const struct {
        double dx, dy;
        std::optional<GestureType> expected;
    } rows[] = {
        {0.2, 0.1, twoFingerSwipeRight},
        {0.2, 0.15, std::nullopt},
        {0.2, 0.2, std::nullopt},
        {0.15, 0.2, std::nullopt},
        {0.1, 0.2, twoFingerSwipeUp},
        // The dominant axis must be at least 1.5 times the other axis.
        {justBelow(0.375), 0.25, std::nullopt},
        {0.375, 0.25, twoFingerSwipeRight},
        {justAbove(0.375), 0.25, twoFingerSwipeRight},
        {-0.375, 0.25, twoFingerSwipeLeft},
        {-0.375, -justAbove(0.25), std::nullopt},
        {0.25, justBelow(0.375), std::nullopt},
        {0.25, 0.375, twoFingerSwipeUp},
        {0.25, justAbove(0.375), twoFingerSwipeUp},
        {-0.25, -0.375, twoFingerSwipeDown},
        {justAbove(0.25), -0.375, std::nullopt},
    };
    for (const auto& [dx, dy, expected] : rows) {
        EXPECT_EQ(twoFingers(dx, dy), expected) << dx << ", " << dy;
    }
}

TEST(SwipeTest, OnlyTheStartAndEndPositionsMatter) {
    const Track there = trackThrough({{0.5, 0.5}, {0.1, 0.9}, {0.75, 0.5}});
    EXPECT_EQ(swipeOf(Tracks{there, there}, 2, quick), twoFingerSwipeRight);
    const Track andBack = trackThrough({{0.5, 0.5}, {0.9, 0.5}, {0.5, 0.5}});
    EXPECT_EQ(swipeOf(Tracks{andBack, andBack}, 2, quick), std::nullopt);
}

TEST(SwipeTest, RejectsNonFinitePositions) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(twoFingers(0.3, 0, nan), std::nullopt);
    EXPECT_EQ(twoFingers(nan, 0), std::nullopt);
    EXPECT_EQ(swipeOf(Tracks{moved(0.3, 0), moved(0.3, nan)}, 2, quick), std::nullopt);
    EXPECT_EQ(swipeOf({}, 2, quick), std::nullopt);
}

} // namespace
} // namespace glidemap

#include "kit/printers.h"
#include "kit/script.h"
#include "made_tracks.h"
#include "recognition/edge_swipe.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

using enum GestureType;
using test::justAbove;
using test::justBelow;

struct Row {
    PadPoint start;
    PadPoint last;
    std::optional<GestureType> expected;
};

void expectRows(std::initializer_list<Row> rows) {
    for (const auto& [start, last, expected] : rows) {
        EXPECT_EQ(edgeSwipeOf(trackThrough({start, last}), 0.4), expected)
            << "from " << start.x << ", " << start.y << " to " << last.x << ", " << last.y;
    }
}

TEST(EdgeSwipeTest, EachEdgeHasItsGesture) {
    expectRows({
        {{0.02, 0.5}, {0.3, 0.5}, edgeSwipeFromLeft},
        {{0.98, 0.5}, {0.7, 0.5}, edgeSwipeFromRight},
        {{0.5, 0.98}, {0.5, 0.7}, edgeSwipeFromTop},
        {{0.5, 0.02}, {0.5, 0.3}, edgeSwipeFromBottom},
        {{0.5, 0.5}, {0.9, 0.5}, std::nullopt},
    });
}

TEST(EdgeSwipeTest, RejectsASwipeLongerThan600Milliseconds) {
    const Track track = trackThrough({{0.02, 0.5}, {0.4, 0.5}});
    EXPECT_EQ(edgeSwipeOf(track, justBelow(0.6)), edgeSwipeFromLeft);
    EXPECT_EQ(edgeSwipeOf(track, 0.6), edgeSwipeFromLeft);
    EXPECT_EQ(edgeSwipeOf(track, justAbove(0.6)), std::nullopt);
}

TEST(EdgeSwipeTest, RejectsAStartAwayFromTheEdge) {
    expectRows({
        {{justBelow(0.035), 0.5}, {0.5, 0.5}, edgeSwipeFromLeft},
        {{0.035, 0.5}, {0.5, 0.5}, edgeSwipeFromLeft},
        {{justAbove(0.035), 0.5}, {0.5, 0.5}, std::nullopt},
        {{justAbove(0.965), 0.5}, {0.5, 0.5}, edgeSwipeFromRight},
        {{0.965, 0.5}, {0.5, 0.5}, edgeSwipeFromRight},
        {{justBelow(0.965), 0.5}, {0.5, 0.5}, std::nullopt},
        {{0.5, justAbove(0.965)}, {0.5, 0.5}, edgeSwipeFromTop},
        {{0.5, 0.965}, {0.5, 0.5}, edgeSwipeFromTop},
        {{0.5, justBelow(0.965)}, {0.5, 0.5}, std::nullopt},
        {{0.5, justBelow(0.035)}, {0.5, 0.5}, edgeSwipeFromBottom},
        {{0.5, 0.035}, {0.5, 0.5}, edgeSwipeFromBottom},
        {{0.5, justAbove(0.035)}, {0.5, 0.5}, std::nullopt},
    });
}

TEST(EdgeSwipeTest, RejectsAnInwardDistanceBelowTheMinimum) {
    expectRows({
        {{0, 0.5}, {justBelow(0.22), 0.5}, std::nullopt},
        {{0, 0.5}, {0.22, 0.5}, edgeSwipeFromLeft},
        {{0, 0.5}, {justAbove(0.22), 0.5}, edgeSwipeFromLeft},
        {{0.5, 0}, {0.5, justBelow(0.22)}, std::nullopt},
        {{0.5, 0}, {0.5, 0.22}, edgeSwipeFromBottom},
        {{0.5, 0}, {0.5, justAbove(0.22)}, edgeSwipeFromBottom},
        // As doubles, 1 - 0.78 is slightly less than the minimum of 0.22, and 1 minus the next
        // smaller double is slightly more.
        {{1, 0.5}, {0.78, 0.5}, std::nullopt},
        {{1, 0.5}, {justBelow(0.78), 0.5}, edgeSwipeFromRight},
        {{0.5, 1}, {0.5, 0.78}, std::nullopt},
        {{0.5, 1}, {0.5, justBelow(0.78)}, edgeSwipeFromTop},
    });
    EXPECT_LT(1 - 0.78, 0.22);
    EXPECT_GT(1 - justBelow(0.78), 0.22);
}

TEST(EdgeSwipeTest, RejectsASidewaysDistanceAboveHalfTheInwardDistance) {
    expectRows({
        {{0, 0}, {0.25, justBelow(0.125)}, edgeSwipeFromLeft},
        {{0, 0}, {0.25, 0.125}, edgeSwipeFromLeft},
        {{0, 0}, {0.25, justAbove(0.125)}, std::nullopt},
        {{0, 0.5}, {0.25, 0.375}, edgeSwipeFromLeft},
        {{0, 0.5}, {0.25, justBelow(0.375)}, std::nullopt},
        {{1, 0.5}, {0.75, 0.625}, edgeSwipeFromRight},
        {{1, 0.5}, {0.75, justAbove(0.625)}, std::nullopt},
        {{0.5, 1}, {0.625, 0.75}, edgeSwipeFromTop},
        {{0.5, 1}, {justAbove(0.625), 0.75}, std::nullopt},
        {{0.5, 0}, {0.375, 0.25}, edgeSwipeFromBottom},
        {{0.5, 0}, {justBelow(0.375), 0.25}, std::nullopt},
        // A typical movement.
        {{0.02, 0.5}, {0.27, 0.6}, edgeSwipeFromLeft},
        {{0.02, 0.5}, {0.27, 0.63}, std::nullopt},
    });
}

TEST(EdgeSwipeTest, CornerStartUsesTheFirstEdgeFromWhichTheFingerMovesInwards) {
    expectRows({
        {{0.02, 0.98}, {0.42, 0.88}, edgeSwipeFromLeft},
        {{0.98, 0.98}, {0.58, 0.88}, edgeSwipeFromRight},
        {{0.02, 0.02}, {0.42, 0.12}, edgeSwipeFromLeft},
        {{0.98, 0.02}, {0.58, 0.12}, edgeSwipeFromRight},
        // The left or right edge is chosen, and the swipe from it fails: the top or bottom edge is
        // not tried.
        {{0.02, 0.98}, {0.12, 0.5}, std::nullopt},
        {{0.98, 0.98}, {0.88, 0.5}, std::nullopt},
        {{0.02, 0.02}, {0.12, 0.5}, std::nullopt},
        // The finger does not move inwards from the left or right edge, so the top or bottom edge
        // counts.
        {{0.02, 0.98}, {0.02, 0.5}, edgeSwipeFromTop},
        {{0.02, 0.98}, {0.01, 0.5}, edgeSwipeFromTop},
        {{0.98, 0.02}, {0.99, 0.5}, edgeSwipeFromBottom},
        {{0.98, 0.98}, {0.98, 0.5}, edgeSwipeFromTop},
        {{0.02, 0.98}, {0.01, 0.99}, std::nullopt},
    });
}

TEST(EdgeSwipeTest, RejectsAFingerThatMovesOutwardsOrDoesNotMove) {
    expectRows({
        {{0.03, 0.5}, {0.0, 0.5}, std::nullopt},
        {{0.03, 0.5}, {0.03, 0.5}, std::nullopt},
        {{0.97, 0.5}, {1.0, 0.5}, std::nullopt},
        {{0.5, 0.97}, {0.5, 1.0}, std::nullopt},
    });
}

TEST(EdgeSwipeTest, StartOutsideThePadCountsAsTheNearestEdge) {
    expectRows({
        {{-0.01, 0.5}, {0.3, 0.5}, edgeSwipeFromLeft},
        {{1.01, 0.5}, {0.7, 0.5}, edgeSwipeFromRight},
    });
}

TEST(EdgeSwipeTest, RejectsNonFinitePositions) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    expectRows({
        {{nan, 0.5}, {0.5, 0.5}, std::nullopt},
        {{0, 0.5}, {nan, 0.5}, std::nullopt},
        {{0, 0.5}, {0.5, nan}, std::nullopt},
    });
    EXPECT_EQ(edgeSwipeOf(trackThrough({{0, 0.5}, {0.5, 0.5}}), nan), std::nullopt);
}

} // namespace
} // namespace glidemap

#include "kit/printers.h"
#include "kit/script.h"
#include "made_tracks.h"
#include "recognition/corner_tap.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

using enum GestureType;
using test::justAbove;
using test::justBelow;

constexpr double high = 1 - 0.18;
static_assert(high == 0.8200000000000001);

TEST(CornerTapTest, EachCornerCovers18PercentOfBothAxes) {
    const struct {
        PadPoint place;
        std::optional<GestureType> expected;
    } rows[] = {
        {{0.1, 0.9}, cornerTapTopLeft},
        {{0.9, 0.9}, cornerTapTopRight},
        {{0.1, 0.1}, cornerTapBottomLeft},
        {{0.9, 0.1}, cornerTapBottomRight},
        {{0, 1}, cornerTapTopLeft},
        {{1, 1}, cornerTapTopRight},
        {{0, 0}, cornerTapBottomLeft},
        {{1, 0}, cornerTapBottomRight},
        {{0.5, 0.5}, std::nullopt},
        {{0.5, 0.9}, std::nullopt},
        {{0.5, 0.1}, std::nullopt},
        {{0.1, 0.5}, std::nullopt},
        {{0.9, 0.5}, std::nullopt},

        {{justBelow(0.18), 0.9}, cornerTapTopLeft},
        {{0.18, 0.9}, cornerTapTopLeft},
        {{justAbove(0.18), 0.9}, std::nullopt},
        {{0.82, 0.9}, std::nullopt}, // 0.82 < 0.8200000000000001
        {{justBelow(high), 0.9}, std::nullopt},
        {{high, 0.9}, cornerTapTopRight},
        {{justAbove(high), 0.9}, cornerTapTopRight},

        {{0.9, justBelow(0.18)}, cornerTapBottomRight},
        {{0.9, 0.18}, cornerTapBottomRight},
        {{0.9, justAbove(0.18)}, std::nullopt},
        {{0.1, 0.82}, std::nullopt},
        {{0.1, high}, cornerTapTopLeft},
        {{0.1, justAbove(high)}, cornerTapTopLeft},
    };
    for (const auto& [place, expected] : rows) {
        EXPECT_EQ(cornerTapOf(trackThrough({place}), 0.2), expected) << place.x << ", " << place.y;
    }
}

TEST(CornerTapTest, RejectsATapLongerThan300Milliseconds) {
    const Track track = trackThrough({{0.1, 0.1}});
    EXPECT_EQ(cornerTapOf(track, justBelow(0.3)), cornerTapBottomLeft);
    EXPECT_EQ(cornerTapOf(track, 0.3), cornerTapBottomLeft);
    EXPECT_EQ(cornerTapOf(track, justAbove(0.3)), std::nullopt);
}

TEST(CornerTapTest, RejectsADriftAboveTheMaximum) {
    const auto drifting = [](double drift) {
        return cornerTapOf(trackThrough({{0, 0.1}, {drift, 0.1}}), 0.2);
    };
    EXPECT_EQ(drifting(0.01), cornerTapBottomLeft);
    EXPECT_EQ(drifting(justBelow(0.03)), cornerTapBottomLeft);
    EXPECT_EQ(drifting(0.03), cornerTapBottomLeft);
    EXPECT_EQ(drifting(justAbove(0.03)), std::nullopt);
}

TEST(CornerTapTest, RejectsAFingerThatDriftsTooFarEvenIfItReturns) {
    EXPECT_EQ(cornerTapOf(trackThrough({{0, 0.1}, {0.031, 0.1}, {0, 0.1}}), 0.2), std::nullopt);
}

TEST(CornerTapTest, LandingPositionSelectsTheCorner) {
    EXPECT_EQ(cornerTapOf(trackThrough({{0.18, 0.9}, {0.2, 0.9}}), 0.2), cornerTapTopLeft);
    EXPECT_EQ(cornerTapOf(trackThrough({{0.2, 0.9}, {0.18, 0.9}}), 0.2), std::nullopt);
}

TEST(CornerTapTest, RejectsNonFinitePositions) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(cornerTapOf(trackThrough({{nan, 0.9}}), 0.2), std::nullopt);
    EXPECT_EQ(cornerTapOf(trackThrough({{0.1, nan}}), 0.2), std::nullopt);
    EXPECT_EQ(cornerTapOf(trackThrough({{0.1, 0.1}}), nan), std::nullopt);
}

} // namespace
} // namespace glidemap

#include "kit/script.h"
#include "recognition/track.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using test::justAbove;
using test::justBelow;
using Path = std::vector<PadPoint>;

Track trackFrom(PadPoint place) {
    Track track;
    track.begin(7, 2.5, place);
    return track;
}

TEST(TrackTest, StartsWhereTheFingerLands) {
    const Track track = trackFrom({0.25, 0.5});
    EXPECT_EQ(track.id, 7);
    EXPECT_EQ(track.startTime, 2.5);
    EXPECT_EQ(track.startPos, (PadPoint{0.25, 0.5}));
    EXPECT_EQ(track.lastPos, (PadPoint{0.25, 0.5}));
    EXPECT_EQ(track.maxDrift, 0);
    EXPECT_EQ(track.points, (Path{{0.25, 0.5}}));
    EXPECT_FALSE(track.ended);
    EXPECT_EQ(track.endTime, 0);
}

TEST(TrackTest, StoresTheEndTime) {
    Track track = trackFrom({0, 0});
    track.end(3.5);
    EXPECT_TRUE(track.ended);
    EXPECT_EQ(track.endTime, 3.5);
}

TEST(TrackTest, BeginDiscardsTheStateOfThePreviousFinger) {
    Track track = trackFrom({0.1, 0.1});
    track.moveTo({0.9, 0.9});
    track.end(3);
    track.begin(9, 4, {0.5, 0.5});
    EXPECT_EQ(track.id, 9);
    EXPECT_EQ(track.startTime, 4);
    EXPECT_EQ(track.maxDrift, 0);
    EXPECT_EQ(track.points, (Path{{0.5, 0.5}}));
    EXPECT_EQ(track.displacement(), (PadPoint{0, 0}));
    EXPECT_FALSE(track.ended);
    EXPECT_EQ(track.endTime, 0);
}

TEST(TrackTest, RecordsTheMaximumDriftAndTheLastPosition) {
    Track track = trackFrom({0, 0.5});
    track.moveTo({0.3, 0.5});
    track.moveTo({0.1, 0.5});
    EXPECT_EQ(track.maxDrift, 0.3);
    EXPECT_EQ(track.lastPos, (PadPoint{0.1, 0.5}));
    EXPECT_EQ(track.displacement(), (PadPoint{0.1, 0}));
}

TEST(TrackTest, KeepsOnlyStepsOfAtLeastTheMinimumLength) {
    const struct {
        double step;
        bool kept;
    } rows[] = {{justBelow(0.004), false}, {0.004, true}, {justAbove(0.004), true}, {0, false}};
    for (const auto& [step, kept] : rows) {
        Track track = trackFrom({0, 0.5});
        track.moveTo({step, 0.5});
        EXPECT_EQ(track.points.size(), kept ? 2U : 1U) << step;
        EXPECT_EQ(track.lastPos.x, step);
        EXPECT_EQ(track.maxDrift, step);
    }
}

TEST(TrackTest, StepIsMeasuredFromTheLastKeptPoint) {
    Track track = trackFrom({0, 0});
    track.moveTo({0.003, 0});
    track.moveTo({0.006, 0});
    track.moveTo({0.009, 0});
    track.moveTo({0.010, 0});
    EXPECT_EQ(track.points, (Path{{0, 0}, {0.006, 0}, {0.010, 0}}));
}

TEST(TrackTest, PathHasAMaximumLength) {
    Track track = trackFrom({0, 0});
    for (int step = 1; step < 1999; ++step) {
        track.moveTo({step % 2 * 0.5, 0});
    }
    EXPECT_EQ(track.points.size(), 1999U);
    track.moveTo({0.25, 0});
    EXPECT_EQ(track.points.size(), 2000U);
    EXPECT_EQ(track.points.back(), (PadPoint{0.25, 0}));
    track.moveTo({0.75, 0});
    EXPECT_EQ(track.points.size(), 2000U);
    EXPECT_EQ(track.points.back(), (PadPoint{0.25, 0}));
    EXPECT_EQ(track.lastPos, (PadPoint{0.75, 0})); // the position is still tracked
    EXPECT_EQ(track.maxDrift, 0.75);
}

} // namespace
} // namespace glidemap

#include "recognition/track_list.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

std::vector<std::int32_t> idsOf(const TrackList& tracks) {
    std::vector<std::int32_t> ids;
    for (const Track& track : tracks.all()) {
        ids.push_back(track.id);
    }
    return ids;
}

class TrackListTest : public testing::Test {
protected:
    void land(std::int32_t id, double time = 0) { tracks.begin(id, time, {0.5, 0.5}, live); }

    void lift(std::int32_t id) {
        tracks.end(live.find(id).value(), 1);
        live.remove(id);
    }

    // Taps with one finger, while other fingers are down, until the list is full.
    void fillWithTaps() {
        for (std::int32_t id = 1000; tracks.size() < TrackList::capacity; ++id) {
            land(id);
            lift(id);
        }
    }

    TrackList tracks;
    LiveIndex live;
};

TEST_F(TrackListTest, KeepsTheTracksInLandingOrder) {
    land(5, 1);
    land(3, 2);
    lift(5);
    land(4, 3);
    EXPECT_EQ(idsOf(tracks), (std::vector{5, 3, 4}));
    EXPECT_EQ(tracks[live.find(4).value()].startTime, 3);
    EXPECT_TRUE(tracks[0].ended);
    EXPECT_FALSE(tracks.isCrowded());
}

TEST_F(TrackListTest, FingerThatLandsAgainGetsANewTrack) {
    land(5, 1);
    lift(5);
    land(5, 2);
    EXPECT_EQ(idsOf(tracks), (std::vector{5, 5}));
    EXPECT_EQ(live.find(5), 1U);
    EXPECT_TRUE(tracks[0].ended);
}

TEST_F(TrackListTest, IsCrowdedAfterItHasDroppedTracks) {
    land(1);
    fillWithTaps();
    EXPECT_FALSE(tracks.isCrowded());
    land(2);
    EXPECT_TRUE(tracks.isCrowded());
}

TEST_F(TrackListTest, DropsOnlyEndedTracks) {
    land(1, 11);
    land(1000);
    lift(1000);
    land(2, 22);
    fillWithTaps();
    land(3, 33);
    EXPECT_EQ(idsOf(tracks), (std::vector{1, 2, 3}));
    EXPECT_EQ(tracks[live.find(1).value()].startTime, 11);
    EXPECT_EQ(tracks[live.find(2).value()].startTime, 22);
    EXPECT_EQ(tracks[live.find(3).value()].startTime, 33);
}

TEST_F(TrackListTest, StaysWithinItsCapacityDuringThousandsOfTaps) {
    land(1);
    for (std::int32_t id = 1000; id < 5000; ++id) {
        land(id);
        lift(id);
        ASSERT_LE(tracks.size(), TrackList::capacity);
        ASSERT_EQ(tracks[live.find(1).value()].id, 1);
    }
}

TEST_F(TrackListTest, FingerBeyondTheCapacityIsNotTracked) {
    for (std::int32_t id = 1; id <= 300; ++id) {
        land(id);
    }
    EXPECT_EQ(tracks.size(), TrackList::capacity);
    EXPECT_EQ(live.size(), TrackList::capacity);
    EXPECT_EQ(live.find(257), std::nullopt);
    EXPECT_TRUE(tracks.isCrowded());
    lift(7);
    land(300);
    EXPECT_EQ(tracks[live.find(300).value()].id, 300);
}

TEST_F(TrackListTest, IsEmptyAndNotCrowdedAfterClear) {
    land(1);
    fillWithTaps();
    land(2);
    tracks.clear();
    live.clear();
    EXPECT_EQ(tracks.size(), 0U);
    EXPECT_FALSE(tracks.isCrowded());
    land(3);
    EXPECT_EQ(idsOf(tracks), std::vector{3});
    EXPECT_EQ(tracks[0].points.size(), 1U);
}

} // namespace
} // namespace glidemap

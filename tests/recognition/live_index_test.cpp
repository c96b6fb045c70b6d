#include "recognition/live_index.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

using Ids = std::vector<std::int32_t>;

Ids idsOf(std::span<const LiveIndex::Entry> entries) {
    Ids ids;
    for (const LiveIndex::Entry& entry : entries) {
        ids.push_back(entry.id);
    }
    return ids;
}

LiveIndex indexOf(const Ids& ids) {
    LiveIndex index;
    std::size_t track = 0;
    for (const std::int32_t id : ids) {
        index.set(id, track++);
    }
    return index;
}

TEST(LiveIndexTest, FindsAddedFingers) {
    const LiveIndex index = indexOf({5, -2, 9});
    EXPECT_EQ(index.find(5), 0U);
    EXPECT_EQ(index.find(-2), 1U);
    EXPECT_EQ(index.find(9), 2U);
    EXPECT_EQ(index.find(6), std::nullopt);
    EXPECT_EQ(index.size(), 3U);
}

TEST(LiveIndexTest, ListsFingersSortedById) {
    EXPECT_EQ(idsOf(indexOf({5, -2, 9, 0}).all()), (Ids{-2, 0, 5, 9}));
}

TEST(LiveIndexTest, SettingAFingerAgainUpdatesItsTrack) {
    LiveIndex index = indexOf({5, 6});
    index.set(5, 40);
    EXPECT_EQ(index.find(5), 40U);
    EXPECT_EQ(index.size(), 2U);
}

TEST(LiveIndexTest, RemovesOnlyTheGivenFinger) {
    LiveIndex index = indexOf({5, 6, 7});
    index.remove(6);
    index.remove(6);
    index.remove(8);
    EXPECT_EQ(idsOf(index.all()), (Ids{5, 7}));
    index.clear();
    EXPECT_EQ(index.size(), 0U);
}

TEST(LiveIndexTest, CollectsLiveFingersThatAreNotInTheReport) {
    constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    const struct {
        Ids live;
        Ids present;
        Ids missing;
    } rows[] = {
        {{1, 2, 3}, {1, 2, 3}, {}},
        {{1, 2, 3}, {}, {1, 2, 3}},
        {{1, 2, 3}, {2}, {1, 3}},
        {{1, 2, 3}, {0, 2, 4}, {1, 3}},
        {{}, {1}, {}},
        {{1, 2}, {1, 1, 2, 2}, {}},
        {{3}, {1, 1, 2, 2}, {3}},
        {{lowest, 0, highest}, {lowest, highest}, {0}},
    };
    for (const auto& [live, present, missing] : rows) {
        std::vector<LiveIndex::Entry> found = {{99, 99}}; // previous content is replaced
        indexOf(live).collectMissing(present, found);
        EXPECT_EQ(idsOf(found), missing);
    }
}

} // namespace
} // namespace glidemap

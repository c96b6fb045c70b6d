#include "recognition/frame_pool.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

std::vector<TouchPoint> arrayOf(std::size_t touches) {
    return std::vector<TouchPoint>(touches, TouchPoint{1, 0.5, 0.5, true});
}

TEST(FramePoolTest, ReturnsEmptyArrays) {
    FramePool pool;
    EXPECT_TRUE(pool.take().empty());
    pool.giveBack(arrayOf(5));
    EXPECT_TRUE(pool.take().empty());
}

TEST(FramePoolTest, ReusesReturnedMemory) {
    FramePool pool;
    auto array = arrayOf(5);
    const TouchPoint* memory = array.data();
    pool.giveBack(std::move(array));
    const auto again = pool.take();
    EXPECT_EQ(again.data(), memory);
    EXPECT_GE(again.capacity(), 5U);
    EXPECT_EQ(pool.take().capacity(), 0U);
}

TEST(FramePoolTest, DoesNotKeepOversizedArrays) {
    FramePool pool;
    pool.giveBack(arrayOf(10'000));
    EXPECT_EQ(pool.take().capacity(), 0U);
}

TEST(FramePoolTest, KeepsAtMost64Arrays) {
    FramePool pool;
    for (int array = 0; array < 1000; ++array) {
        pool.giveBack(arrayOf(5));
    }
    int kept = 0;
    while (pool.take().capacity() != 0) {
        ++kept;
    }
    EXPECT_GT(kept, 0);
    EXPECT_LE(kept, 64);
}

TEST(FramePoolTest, DoesNotKeepArraysWithoutCapacity) {
    FramePool pool;
    pool.giveBack(arrayOf(3));
    pool.giveBack({});
    EXPECT_GE(pool.take().capacity(), 3U);
}

} // namespace
} // namespace glidemap

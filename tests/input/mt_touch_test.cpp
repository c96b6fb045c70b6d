#include "input/mt_touch.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace glidemap {
namespace {

// A report in the driver's memory layout, built byte by byte.
class RawReport {
public:
    explicit RawReport(std::size_t records) : bytes(records * 96, 0xee) {}

    template <typename Value>
    RawReport& put(std::size_t offset, Value value) {
        std::memcpy(bytes.data() + offset, &value, sizeof value);
        return *this;
    }

    std::vector<MTTouch> records() const {
        std::vector<MTTouch> result(bytes.size() / sizeof(MTTouch));
        std::memcpy(result.data(), bytes.data(), bytes.size());
        return result;
    }

private:
    std::vector<unsigned char> bytes;
};

TEST(MTTouchTest, EveryFieldIsAtTheOffsetThatTheDriverUses) {
    const MTTouch touch = RawReport(1)
                              .put<std::int32_t>(0, 1)
                              .put(8, 2.5)
                              .put<std::int32_t>(16, 3)
                              .put<std::int32_t>(20, 4)
                              .put<std::int32_t>(24, 5)
                              .put<std::int32_t>(28, 6)
                              .put(32, 0.25F)
                              .put(36, 0.75F)
                              .put(40, -1.5F)
                              .put(44, 1.5F)
                              .put(48, 7.0F)
                              .put<std::int32_t>(52, 8)
                              .put(56, 9.0F)
                              .put(60, 10.0F)
                              .put(64, 11.0F)
                              .put(68, 12.0F)
                              .put(72, 13.0F)
                              .put(76, 14.0F)
                              .put(80, 15.0F)
                              .put<std::int32_t>(84, 16)
                              .put<std::int32_t>(88, 17)
                              .put(92, 18.0F)
                              .records()
                              .front();
    EXPECT_EQ(touch.frame, 1);
    EXPECT_EQ(touch.timestamp, 2.5);
    EXPECT_EQ(touch.identifier, 3);
    EXPECT_EQ(touch.state, 4);
    EXPECT_EQ(touch.fingerID, 5);
    EXPECT_EQ(touch.handID, 6);
    EXPECT_EQ(touch.normalized.pos.x, 0.25F);
    EXPECT_EQ(touch.normalized.pos.y, 0.75F);
    EXPECT_EQ(touch.normalized.vel.x, -1.5F);
    EXPECT_EQ(touch.normalized.vel.y, 1.5F);
    EXPECT_EQ(touch.zTotal, 7);
    EXPECT_EQ(touch.field9, 8);
    EXPECT_EQ(touch.angle, 9);
    EXPECT_EQ(touch.majorAxis, 10);
    EXPECT_EQ(touch.minorAxis, 11);
    EXPECT_EQ(touch.absolute.pos.x, 12);
    EXPECT_EQ(touch.absolute.pos.y, 13);
    EXPECT_EQ(touch.absolute.vel.x, 14);
    EXPECT_EQ(touch.absolute.vel.y, 15);
    EXPECT_EQ(touch.field14, 16);
    EXPECT_EQ(touch.field15, 17);
    EXPECT_EQ(touch.zDensity, 18);
}

TEST(MTTouchTest, RecordsArePackedBackToBack) {
    const auto records = RawReport(3)
                             .put<std::int32_t>(16, 1)
                             .put<std::int32_t>(112, 2)
                             .put<std::int32_t>(208, 3)
                             .records();
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[0].identifier, 1);
    EXPECT_EQ(records[1].identifier, 2);
    EXPECT_EQ(records[2].identifier, 3);
}

TEST(MTTouchTest, OnlyStatesThreeAndFourCountAsTouching) {
    const struct {
        std::int32_t state;
        bool touching;
    } rows[] = {
        {0, false},
        {1, false},
        {2, false},
        {3, true},
        {4, true},
        {5, false},
        {6, false},
        {7, false},
        {8, false},
        {9, false},
        {31, false},
        {32, false},
        {35, false},
        {36, false},
        {67, false},
        {-1, false},
        {-3, false},
        {-29, false},
        {std::numeric_limits<std::int32_t>::min(), false},
        {std::numeric_limits<std::int32_t>::min() + 3, false},
        {std::numeric_limits<std::int32_t>::max(), false},
    };
    for (const auto& [state, touching] : rows) {
        EXPECT_EQ(isTouchingState(state), touching) << state;
    }
    // These calls are also evaluated at compile time, where undefined behaviour is an error.
    static_assert(!isTouchingState(-1) && !isTouchingState(8) && !isTouchingState(31));
}

} // namespace
} // namespace glidemap

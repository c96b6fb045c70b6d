// The trackpad framework is private, so no system header defines the layout of its records. A
// comparison with the framework itself would need a Mac's trackpad. Instead, this test reads a
// record that is built byte by byte as the framework writes it on a 64-bit Mac.
#include "input/mt_touch.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace glidemap::test {
namespace {

constexpr std::size_t recordSize = 96;
using Record = std::array<std::byte, recordSize>;

template <typename Value>
void put(Record& record, std::size_t offset, Value value) {
    std::memcpy(record.data() + offset, &value, sizeof value);
}

static_assert(sizeof(MTTouch) == recordSize);

TEST(TouchRecordsContract, RecordFieldsHaveTheFrameworksOffsets) {
    Record record{};
    put<std::int32_t>(record, 0, 7);
    put<double>(record, 8, 1234.5);
    put<std::int32_t>(record, 16, 3);
    put<std::int32_t>(record, 20, 4);
    put<float>(record, 32, 0.25F);
    put<float>(record, 36, 0.75F);
    put<float>(record, 92, 0.5F);
    MTTouch touch;
    std::memcpy(&touch, record.data(), sizeof touch);
    EXPECT_EQ(touch.frame, 7);
    EXPECT_EQ(touch.timestamp, 1234.5);
    EXPECT_EQ(touch.identifier, 3);
    EXPECT_EQ(touch.state, static_cast<std::int32_t>(MTTouchState::touching));
    EXPECT_EQ(touch.normalized.pos.x, 0.25F);
    EXPECT_EQ(touch.normalized.pos.y, 0.75F);
    EXPECT_EQ(touch.zDensity, 0.5F);
}

} // namespace
} // namespace glidemap::test

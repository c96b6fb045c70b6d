#include "drivers/evdev/capability_bits.h"

#include <gtest/gtest.h>

namespace glidemap::test {
namespace {

TEST(CapabilityBits, LastWordHoldsTheLowestBits) {
    static_assert(sizeof(long) == 8, "the rows are written for words of 64 bits");
    struct Row {
        const char* words;
        unsigned bit;
        bool expected;
    };
    const Row rows[] = {
        {"1", 0, true},
        {"1", 1, false},
        {"5", 2, true},
        {"8000000000000000", 63, true},
        {"8000000000000000", 64, false},
        {"1 0", 64, true},
        {"1 0", 0, false},
        {"1 0", 128, false},
        {"260800000000003", 53, true}, // axes of a touchpad: positions and tracking ids
        {"260800000000003", 56, false},
        {"e520 10000 0 0 0 0", 272, true}, // keys of a touchpad: the left button
        {"e520 10000 0 0 0 0", 325, true}, // the key that reports one finger
        {"e520 10000 0 0 0 0", 324, false},
        {"", 0, false},
        {"", 64, false},
        {"none", 3, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(hasBit(row.words, row.bit), row.expected) << row.words << ", bit " << row.bit;
    }
}

} // namespace
} // namespace glidemap::test

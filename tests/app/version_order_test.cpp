#include "app/version_order.h"

#include <gtest/gtest.h>

#include <string>

namespace glidemap {
namespace {

enum class Order { older, same, newer };

struct Row {
    std::string version;
    std::string other;
    Order order;
};

const Row rows[] = {
    {"1.2", "1.2", Order::same},
    {"1.2.1", "1.2", Order::newer},
    {"1.0", "1.1", Order::older},
    {"2", "1.9.9", Order::newer},
    {"1.10", "1.9", Order::newer},
    {"1.2.0", "1.2", Order::same},
    {"1.2.0.0.0", "1.2", Order::same},
    {"1.2.0.0.1", "1.2", Order::newer},
    {"0.9.9", "1", Order::older},
    {"1.02", "1.2", Order::same},
    {"0000000000000000000000000000001.2", "1.2", Order::same},

    // Empty pieces are dropped.
    {"1..2", "1.2", Order::same},
    {"..1.2..", "1.2", Order::same},
    {"1..2", "1.0.2", Order::newer},
    {"", "", Order::same},
    {"...", "", Order::same},
    {"", "0.0.0", Order::same},
    {"", "0.0.1", Order::older},
    {"...1", "", Order::newer},

    // A sign is part of a number; without digits it is none.
    {"+1.+2", "1.2", Order::same},
    {"1.-1", "1", Order::older},
    {"1.-1", "1.-2", Order::newer},
    {"-0", "0", Order::same},
    {"1.+", "1.0", Order::same},
    {"1.-", "1.0", Order::same},
    {"1.+-5", "1.0", Order::same},
    {"1.-+5", "1.0", Order::same},
    {"1.++5", "1.0", Order::same},
    {"1.--5", "1.0", Order::same},

    // What is no number is 0, the rest of its piece included.
    {"2.0-beta", "2.0", Order::same},
    {"1.3-beta", "1.0", Order::same},
    {"1.3-beta", "1.1", Order::older},
    {"v2.0", "1.0", Order::older},
    {"v2.0", "0.0", Order::same},
    {"1.2 ", "1.0", Order::same},
    {"1. 2", "1.0", Order::same},
    {"1.\t2", "1.0", Order::same},
    {"1,5", "0", Order::same},
    {"0x10", "0", Order::same},
    {"1e3", "0", Order::same},
    {"٣", "0", Order::same}, // a digit, elsewhere
    {std::string("1.2\0", 4), "1.0", Order::same},
    {std::string("1.\0002", 4), "1.0", Order::same},

    // To the last of 64 bits, and not beyond.
    {"9223372036854775807", "9223372036854775806", Order::newer},
    {"9223372036854775808", "0", Order::same},
    {"+9223372036854775807", "9223372036854775807", Order::same},
    {"+9223372036854775808", "0", Order::same},
    {"18446744073709551617", "1", Order::older},
    {"-9223372036854775808", "-9223372036854775807", Order::older},
    {"-9223372036854775809", "0", Order::same},
    {"1." + std::string(10000, '9'), "1.0", Order::same},
    {"9223372036854775807", "-9223372036854775808", Order::newer},
};

TEST(VersionOrderTest, VersionsAreComparedNumberByNumber) {
    for (const auto& [version, other, order] : rows) {
        EXPECT_EQ(isNewerVersion(version, other), order == Order::newer)
            << version << " than " << other;
        EXPECT_EQ(isNewerVersion(other, version), order == Order::older)
            << other << " than " << version;
    }
}

TEST(VersionOrderTest, AMillionPiecesAreComparedToTheLast) {
    std::string version;
    for (int piece = 0; piece < 1'000'000; ++piece) {
        version += "0.";
    }
    EXPECT_FALSE(isNewerVersion(version, ""));
    EXPECT_TRUE(isNewerVersion(version + "1", version));
    EXPECT_FALSE(isNewerVersion(version, version + "1"));
}

} // namespace
} // namespace glidemap

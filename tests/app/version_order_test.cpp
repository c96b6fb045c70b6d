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

    // Empty pieces are skipped.
    {"1..2", "1.2", Order::same},
    {"..1.2..", "1.2", Order::same},
    {"1..2", "1.0.2", Order::newer},
    {"", "", Order::same},
    {"...", "", Order::same},
    {"", "0.0.0", Order::same},
    {"", "0.0.1", Order::older},
    {"...1", "", Order::newer},

    // A sign belongs to the number; a sign without digits is 0.
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

    // A piece that is not entirely a number is 0.
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
    {"٣", "0", Order::same}, // an Arabic digit
    {std::string("1.2\0", 4), "1.0", Order::same},
    {std::string("1.\0002", 4), "1.0", Order::same},

    // A number that does not fit into 64 bits is 0.
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

TEST(VersionOrderTest, VersionsAreComparedComponentByComponent) {
    for (const auto& [version, other, order] : rows) {
        EXPECT_EQ(isNewerVersion(version, other), order == Order::newer)
            << version << " than " << other;
        EXPECT_EQ(isNewerVersion(other, version), order == Order::older)
            << other << " than " << version;
    }
}

std::string piecesOfZero(int count) {
    std::string version;
    for (int piece = 0; piece < count; ++piece) {
        version += "0.";
    }
    return version;
}

TEST(VersionOrderTest, AllOfAMillionComponentsAreCompared) {
    const std::string version = piecesOfZero(1'000'000);
    EXPECT_FALSE(isNewerVersion(version, ""));
    EXPECT_TRUE(isNewerVersion("0", version + "-1"));
    EXPECT_FALSE(isNewerVersion("0", version + "1"));
}

TEST(VersionOrderTest, TextOfMoreThan64CharactersIsNeverNewer) {
    EXPECT_TRUE(isNewerVersion(piecesOfZero(31) + "99", "0"));
    EXPECT_FALSE(isNewerVersion(piecesOfZero(31) + "999", "0"));
    EXPECT_FALSE(isNewerVersion("9." + std::string(100'000, 'x'), "0"));
    std::string wide = "9.";
    for (int character = 0; character < 62; ++character) {
        wide += "二";
    }
    EXPECT_TRUE(isNewerVersion(wide, "0")) << "characters count, not bytes";
    EXPECT_FALSE(isNewerVersion(wide + "二", "0"));
}

TEST(VersionOrderTest, TextWithAControlCharacterIsNeverNewer) {
    using namespace std::string_literals;
    for (const std::string& control :
         {"\0"s, "\t"s, "\n"s, "\x1b"s, "\x7f"s, "\xc2\x80"s, "\xc2\x9b"s, "\xc2\x9f"s}) {
        EXPECT_FALSE(isNewerVersion("9." + control, "1"));
        EXPECT_FALSE(isNewerVersion(control + "9", "1"));
    }
    EXPECT_TRUE(isNewerVersion("9.\xc2\xa0", "1"));
}

} // namespace
} // namespace glidemap

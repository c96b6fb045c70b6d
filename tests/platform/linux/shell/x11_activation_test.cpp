#include "platform/linux/shell/x11_activation.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

TEST(X11ActivationTest, ParsesTheLaunchTimeFromTheStartupID) {
    struct Row {
        const char* id;
        std::uint32_t time;
    };
    const Row rows[] = {
        {"", 0},
        {"host-123-glidemap_TIME4567", 4567},
        {"host_TIMEzone_TIME4294967295", 4294967295},
        {"host_TIME4294967296", 0},
        {"host_TIME", 0},
        {"host_TIME12x", 0},
        {"host_TIME-1", 0},
        {"host_time12", 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(timeOfLaunch(row.id), row.time) << row.id;
    }
}

TEST(X11ActivationTest, SplitsTheRemoveMessageAndEndsItWithANullByte) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(endOfLaunch("a"), (Pieces{std::string("remove: ID=\"a\"\0", 15)}));
    EXPECT_EQ(endOfLaunch("host-1_TIME2"),
              (Pieces{"remove: ID=\"host-1_T", std::string("IME2\"\0", 6)}));
    // The text fills its pieces exactly, so the final null byte needs a separate piece.
    EXPECT_EQ(endOfLaunch("1234567"), (Pieces{"remove: ID=\"1234567\"", std::string("\0", 1)}));
    EXPECT_EQ(endOfLaunch("a\"\\"), (Pieces{std::string("remove: ID=\"a\\\"\\\\\"\0", 19)}));
}

} // namespace
} // namespace glidemap

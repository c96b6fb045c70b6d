#include "platform/common/application_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glidemap {
namespace {

TEST(ApplicationTable, InternReturnsTheSameAddressForEqualApplications) {
    ApplicationTable table(10);
    const Application* const first = table.intern({"a", "A"});
    EXPECT_EQ(*first, (Application{"a", "A"}));
    EXPECT_EQ(table.intern({"a", "A"}), first);
    EXPECT_NE(table.intern({"a", "Another name"}), first);
    EXPECT_NE(table.intern({"a", std::nullopt}), first);
    EXPECT_NE(table.intern({std::nullopt, "A"}), first);
}

TEST(ApplicationTable, InternReturnsUnknownForAnEmptyApplication) {
    ApplicationTable table(10);
    EXPECT_EQ(table.intern({}), ApplicationTable::unknown());
    EXPECT_EQ(*ApplicationTable::unknown(), Application{});
}

TEST(ApplicationTable, AddressesStayValidWhileTheTableGrowsToItsLimit) {
    constexpr std::size_t places = 1000;
    ApplicationTable table(places);
    std::vector<const Application*> reported;
    for (std::size_t number = 0; number < places; ++number)
        reported.push_back(table.intern({std::to_string(number), "n"}));
    for (std::size_t number = places; number < places * 100; ++number)
        ASSERT_EQ(table.intern({std::to_string(number), "n"}), ApplicationTable::unknown());
    for (std::size_t number = 0; number < places; ++number) {
        EXPECT_EQ(*reported[number], (Application{std::to_string(number), "n"}));
        EXPECT_EQ(table.intern({std::to_string(number), "n"}), reported[number]);
    }
}

} // namespace
} // namespace glidemap

#include "ui/settings/binding_selection.h"
#include "ui_settings/settings_stage.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace glidemap {
namespace {

using Place = std::optional<std::size_t>;

class BindingSelectionTest : public testing::Test {
protected:
    BindingList listOf(std::initializer_list<std::size_t> which) const {
        BindingList list;
        for (const std::size_t index : which) {
            list.push_back(all[index]);
        }
        return list;
    }

    const BindingList all = test::manyBindings(6);
};

TEST_F(BindingSelectionTest, GoesWhereItsBindingGoes) {
    struct Row {
        std::initializer_list<std::size_t> after;
        Place selected;
        Place expected;
    };
    const Row rows[] = {
        {{0, 1, 2, 3, 4, 5}, 3, 3},
        {{1, 2, 3, 4, 5}, 3, 2},    // one before it has gone
        {{0, 1, 2, 4, 5}, 3, 3},    // itself: the next
        {{0, 1, 2, 3, 4}, 5, 4},    // itself, the last: the one before
        {{0, 1, 2}, 4, 2},          // all from it on
        {{5}, 2, 0},                // only a later one is left
        {{3, 0, 1, 2, 4, 5}, 3, 0}, // moved
        {{}, 3, std::nullopt},
        {{1, 2}, std::nullopt, std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(selectionAfter(all, listOf(row.after), row.selected), row.expected);
    }
}

TEST_F(BindingSelectionTest, OfTwinsTheNearestIsTheOne) {
    const BindingList twins = listOf({0, 1, 2, 1, 4});
    EXPECT_EQ(nearestWith(all[1].id, twins, 0), 1);
    EXPECT_EQ(nearestWith(all[1].id, twins, 3), 3);
    EXPECT_EQ(nearestWith(all[1].id, twins, 100), 3);
    EXPECT_EQ(nearestWith(all[5].id, twins, 0), std::nullopt);
    EXPECT_EQ(nearestWith(all[5].id, {}, 0), std::nullopt);
}

TEST_F(BindingSelectionTest, OneMoreAtTheEndIsGrowth) {
    EXPECT_TRUE(hasGrownByOne(listOf({0, 1}), listOf({0, 1, 2})));
    EXPECT_TRUE(hasGrownByOne({}, listOf({0})));
    EXPECT_FALSE(hasGrownByOne(listOf({0, 1}), listOf({0, 1})));
    EXPECT_FALSE(hasGrownByOne(listOf({0, 1}), listOf({2, 0, 1})));
    EXPECT_FALSE(hasGrownByOne(listOf({0}), listOf({0, 1, 2})));
}

} // namespace
} // namespace glidemap

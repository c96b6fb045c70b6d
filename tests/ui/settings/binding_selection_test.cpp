#include "ui/settings/binding_selection.h"
#include "ui/settings/settings_stage.h"

#include <gtest/gtest.h>

#include <Qt>
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

TEST_F(BindingSelectionTest, FollowsItsBinding) {
    struct Row {
        std::initializer_list<std::size_t> after;
        Place selected;
        Place expected;
    };
    const Row rows[] = {
        {{0, 1, 2, 3, 4, 5}, 3, 3},
        {{1, 2, 3, 4, 5}, 3, 2}, // an earlier binding was deleted
        {{0, 1, 2, 4, 5}, 3, 3}, // the selected one was deleted: selects its successor
        // The selected one was last and was deleted: selects its predecessor.
        {{0, 1, 2, 3, 4}, 5, 4},
        {{0, 1, 2}, 4, 2},          // the selected one and all later ones were deleted
        {{5}, 2, 0},                // only a later one is left
        {{3, 0, 1, 2, 4, 5}, 3, 0}, // moved
        {{}, 3, std::nullopt},
        {{1, 2}, std::nullopt, std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(selectionAfter(all, listOf(row.after), row.selected), row.expected);
    }
}

TEST_F(BindingSelectionTest, FindsTheClosestOfBindingsWithTheSameIdentifier) {
    const BindingList twins = listOf({0, 1, 2, 1, 4});
    EXPECT_EQ(closestWithIdentifier(all[1].id, twins, 0), 1);
    EXPECT_EQ(closestWithIdentifier(all[1].id, twins, 3), 3);
    EXPECT_EQ(closestWithIdentifier(all[1].id, twins, 100), 3);
    EXPECT_EQ(closestWithIdentifier(all[5].id, twins, 0), std::nullopt);
    EXPECT_EQ(closestWithIdentifier(all[5].id, {}, 0), std::nullopt);
}

TEST_F(BindingSelectionTest, DetectsASingleAppendedBinding) {
    EXPECT_TRUE(hasGrownByOne(listOf({0, 1}), listOf({0, 1, 2})));
    EXPECT_TRUE(hasGrownByOne({}, listOf({0})));
    EXPECT_FALSE(hasGrownByOne(listOf({0, 1}), listOf({0, 1})));
    EXPECT_FALSE(hasGrownByOne(listOf({0, 1}), listOf({2, 0, 1})));
    EXPECT_FALSE(hasGrownByOne(listOf({0}), listOf({0, 1, 2})));
}

TEST_F(BindingSelectionTest, MovementKeysStayWithinTheList) {
    struct Row {
        const char* what;
        int key;
        Place from;
        Place to; // in a list of ten bindings, four per page
    };
    const Row rows[] = {
        {"up", Qt::Key_Up, 5, 4},
        {"up from the first", Qt::Key_Up, 0, 0},
        {"up without a selection", Qt::Key_Up, std::nullopt, 0},
        {"down", Qt::Key_Down, 5, 6},
        {"down from the last", Qt::Key_Down, 9, 9},
        {"down without a selection", Qt::Key_Down, std::nullopt, 0},
        {"a page up", Qt::Key_PageUp, 5, 1},
        {"a page up, where there is just one", Qt::Key_PageUp, 4, 0},
        {"a page up, where there is less", Qt::Key_PageUp, 3, 0},
        {"a page down", Qt::Key_PageDown, 4, 8},
        {"a page down, where there is just one", Qt::Key_PageDown, 5, 9},
        {"a page down, where there is less", Qt::Key_PageDown, 6, 9},
        {"home", Qt::Key_Home, 7, 0},
        {"end", Qt::Key_End, 2, 9},
        {"a key that does something else", Qt::Key_Return, 5, std::nullopt},
        {"a key to the side", Qt::Key_Right, 5, std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(selectionMovedBy(row.key, row.from, 10, 4), row.to) << row.what;
    }
    EXPECT_EQ(selectionMovedBy(Qt::Key_Down, 0, 1, 4), 0);
}

} // namespace
} // namespace glidemap

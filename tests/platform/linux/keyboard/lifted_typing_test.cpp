#include "platform/linux/keyboard/lifted_typing.h"
#include "typed_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace glidemap {
namespace {

using Changes = std::vector<KeyChange>;
using Codes = std::vector<std::uint16_t>;

const Changes controlT = {
    {KEY_LEFTCTRL, true}, {KEY_T, true}, {KEY_T, false}, {KEY_LEFTCTRL, false}};

struct Row {
    const char* name;
    Codes held;
    const char* typed;
    const char* putBack;
};

const Row rows[] = {
    {"shift", {KEY_LEFTSHIFT}, "-SHIFT +CTRL +T -T -CTRL", "+SHIFT"},
    {"a modifier of the shortcut is also held", {KEY_LEFTCTRL}, "-CTRL +CTRL +T -T -CTRL", "+CTRL"},
    {"super, which alone is a command",
     {KEY_LEFTMETA},
     "+CTRL -CTRL -META +CTRL +T -T -CTRL",
     "+META +CTRL -CTRL"},
    {"alt, which alone is a command",
     {KEY_RIGHTALT},
     "+CTRL -CTRL -RIGHTALT +CTRL +T -T -CTRL",
     "+RIGHTALT +CTRL -CTRL"},
    {"super and control: not alone",
     {KEY_LEFTMETA, KEY_RIGHTCTRL},
     "-META -RIGHTCTRL +CTRL +T -T -CTRL",
     "+META +RIGHTCTRL"},
    {"super and shift: no key was pressed in between",
     {KEY_LEFTSHIFT, KEY_LEFTMETA},
     "+CTRL -CTRL -SHIFT -META +CTRL +T -T -CTRL",
     "+SHIFT +META +CTRL -CTRL"},
};

TEST(LiftedTypingTest, ReleasesHeldModifiersAndPressesThemAgain) {
    for (const Row& row : rows) {
        EXPECT_EQ(typedText(typedWithout(row.held, controlT)), row.typed) << row.name;
        EXPECT_EQ(typedText(putBack(row.held)), row.putBack) << row.name;
    }
    EXPECT_EQ(typedText(putBack({})), "");
}

TEST(LiftedTypingTest, ChangesAreBalancedOnlyIfEachPressIsFollowedByItsRelease) {
    EXPECT_TRUE(areBalanced({}));
    EXPECT_TRUE(areBalanced(controlT));
    EXPECT_FALSE(areBalanced(Changes{{KEY_T, true}}));
    EXPECT_FALSE(areBalanced(Changes{{KEY_T, false}}));
    EXPECT_FALSE(areBalanced(Changes{{KEY_T, true}, {KEY_T, true}, {KEY_T, false}}));
    EXPECT_FALSE(areBalanced(Changes{{KEY_T, false}, {KEY_T, true}}));
    EXPECT_FALSE(areBalanced(Changes{{KEY_T, true}, {KEY_Q, false}}));
}

} // namespace
} // namespace glidemap

#include "bindings/key_shortcut.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using namespace modifier;

struct Row {
    const char* name;
    KeyShortcut shortcut;
    const char* shown;
};

constexpr std::uint16_t rightArrow = 124;

const Row rows[] = {
    {"no modifier: the key's name alone", {rightArrow, 0}, "→"},
    {"control", {rightArrow, control}, "⌃→"},
    {"option", {rightArrow, option}, "⌥→"},
    {"shift", {rightArrow, shift}, "⇧→"},
    {"command", {rightArrow, command}, "⌘→"},
    {"command is never before shift", {rightArrow, command | shift}, "⇧⌘→"},
    {"option and command", {rightArrow, 0x180000}, "⌥⌘→"},
    {"all four, in the fixed order", {rightArrow, command | shift | option | control}, "⌃⌥⇧⌘→"},
    {"unknown bits are not shown", {rightArrow, ~std::uint64_t{0}}, "⌃⌥⇧⌘→"},
    {"unknown bits are not modifiers", {rightArrow, ~(command | shift | option | control)}, "→"},
    {"the lowest key code", {0, command}, "⌘A"},
    {"a key with a word for a name", {49, control}, "⌃Space"},
    {"a key without a name", {10, shift}, "⇧Key 10"},
    {"the highest key code", {65535, 0}, "Key 65535"},
};

TEST(KeyShortcutTest, IsShownAsModifierSymbolsInOrderAndTheKeyName) {
    for (const Row& row : rows) {
        EXPECT_EQ(row.shortcut.displayString(), row.shown) << row.name;
    }
}

TEST(KeyShortcutTest, EqualityComparesKeyAndAllModifierBits) {
    const KeyShortcut shortcut{rightArrow, command};
    EXPECT_EQ(shortcut, (KeyShortcut{rightArrow, command}));
    EXPECT_NE(shortcut, (KeyShortcut{rightArrow - 1, command}));
    EXPECT_NE(shortcut, (KeyShortcut{rightArrow, command | 1}));
    EXPECT_NE(shortcut, (KeyShortcut{rightArrow, command | 1ULL << 63}));
}

} // namespace
} // namespace glidemap

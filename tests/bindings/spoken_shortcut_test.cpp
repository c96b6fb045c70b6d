#include "bindings/spoken_shortcut.h"

#include <gtest/gtest.h>

#include <cctype>

namespace glidemap {
namespace {

constexpr std::uint64_t all =
    modifier::shift | modifier::control | modifier::option | modifier::command;

std::string spoken(const KeyShortcut& shortcut, KeyboardKind kind, const char* code = "en") {
    Lang lang{nullptr};
    lang.setCode(code);
    return spokenShortcut(shortcut, lang, kind);
}

TEST(SpokenShortcutTest, UsesTheKeyNamesOfAppleAndPcKeyboards) {
    const KeyShortcut right{.keyCode = 124, .modifiers = modifier::option | modifier::command};
    EXPECT_EQ(spoken(right, KeyboardKind::apple), "Option Command Right Arrow");
    EXPECT_EQ(spoken(right, KeyboardKind::apple, "zh"), "Option Command 右箭头");
    EXPECT_EQ(spoken(right, KeyboardKind::pc), "Alt Super Right Arrow");
    EXPECT_EQ(spoken({.keyCode = 40, .modifiers = all}, KeyboardKind::pc),
              "Ctrl Alt Shift Super K");
    EXPECT_EQ(spoken({.keyCode = 53, .modifiers = 0}, KeyboardKind::apple), "Escape");
    EXPECT_EQ(spoken({.keyCode = 105, .modifiers = 0}, KeyboardKind::apple), "F13");
    EXPECT_EQ(spoken({.keyCode = 105, .modifiers = 0}, KeyboardKind::pc), "Print Screen");
    EXPECT_EQ(spoken({.keyCode = 89, .modifiers = 0}, KeyboardKind::pc, "zh"), "小键盘 7");
}

TEST(SpokenShortcutTest, ModifierSymbolsAreInDisplayOrder) {
    EXPECT_EQ(modifierSymbols(all), "⌃⌥⇧⌘");
    EXPECT_EQ(modifierSymbols(0), "");
    EXPECT_EQ(modifierSymbols(all) + "K",
              (KeyShortcut{.keyCode = 40, .modifiers = all}).displayString());
}

// A screen reader skips symbols or misreads them.
TEST(SpokenShortcutTest, EverySymbolKeyHasASpokenName) {
    for (std::uint16_t key = 0; key <= 127; ++key) {
        for (const char letter : spoken({.keyCode = key, .modifiers = 0}, KeyboardKind::apple)) {
            EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(letter)) || letter == ' ') << key;
        }
    }
}

TEST(SpokenShortcutTest, WritesModifierNamesForPcKeyboards) {
    const KeyShortcut right{.keyCode = 124,
                            .modifiers = modifier::control | modifier::option | modifier::command};
    EXPECT_EQ(writtenShortcut(right, KeyboardKind::pc), "Ctrl+Alt+Super+→");
    EXPECT_EQ(writtenShortcut(right, KeyboardKind::apple), "");
    EXPECT_EQ(writtenShortcut({.keyCode = 106, .modifiers = 0}, KeyboardKind::pc), "F16")
        << "the symbols say a number";
}

} // namespace
} // namespace glidemap

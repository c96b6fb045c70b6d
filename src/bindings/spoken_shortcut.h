// A shortcut in words, for programs that read the window aloud and for keyboards whose keys bear other names than the symbols.
//
// Thread:  any; pure functions, but for the kind of keyboard, which is set once at the start.
// Errors:  none. A key without a word of its own is called what it is shown as.
#pragma once

#include "bindings/key_shortcut.h"
#include "core/lang.h"

#include <cstdint>
#include <string>

namespace glidemap {

enum class KeyboardKind {
    apple, // Control, Option, Shift, Command
    pc,    // Ctrl, Alt, Shift, Super
};

// Of this system's keyboards; Apple's until it is set. Only the home that runs knows, and every view asks.
void setUsualKeyboard(KeyboardKind kind);
KeyboardKind usualKeyboard();

// The symbols of these modifiers alone, in the order of a shortcut: "⌃⌥".
std::string modifierSymbols(std::uint64_t modifiers);

// "Option Command Right Arrow".
std::string spokenShortcut(const KeyShortcut& shortcut, const Lang& lang,
                           KeyboardKind keyboard = usualKeyboard());

// "Alt+Super+→", as keyboards of that kind are spoken of; empty where the symbols say it already.
std::string writtenShortcut(const KeyShortcut& shortcut, KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

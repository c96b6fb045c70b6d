// A shortcut in words, for screen readers and for keyboards with key names instead of symbols.
//
// Thread:  any; pure functions, except the keyboard kind, which is set once on startup.
// Errors:  none. A key without a word of its own is spoken by its label.
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

// The keyboard kind of this system; Apple's until it is set. Only the platform knows it, and every
// view needs it.
void setUsualKeyboard(KeyboardKind kind);
KeyboardKind usualKeyboard();

// The symbols of these modifiers alone, in shortcut order: "⌃⌥".
std::string modifierSymbols(std::uint64_t modifiers);

// "Option Command Right Arrow".
std::string spokenShortcut(const KeyShortcut& shortcut, const Lang& lang,
                           KeyboardKind keyboard = usualKeyboard());

// "Alt+Super+→", the notation for keyboards of that kind; empty if it would repeat the symbols.
std::string writtenShortcut(const KeyShortcut& shortcut, KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

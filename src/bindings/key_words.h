// The names of keys in words, for screen readers and for the list of keys: "Right Arrow", "Keypad 7".
//
// A keyboard of a PC has other words on some keys than the symbols say: F13 is its Print Screen.
//
// Thread:  any; pure functions.
// Errors:  none. A key without words is called by its label.
#pragma once

#include "bindings/keyboard_kind.h"
#include "core/lang.h"

#include <cstdint>
#include <string>

namespace glidemap {

std::string keyWords(std::uint16_t keyCode, const Lang& lang,
                     KeyboardKind keyboard = usualKeyboard());

// The label of shortcut texts: "→". Empty for a key that has none but its number.
std::string keyLabel(std::uint16_t keyCode);

// "Ctrl" or "Control", for one modifier's bit.
std::string modifierWord(std::uint64_t modifier, KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

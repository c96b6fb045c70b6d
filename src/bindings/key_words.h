// The names of keys in words, for screen readers and for the list of keys: "Right Arrow", "Keypad 7".
//
// PC keyboards label some keys differently: F13 is Print Screen there.
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

// The label in shortcut texts: "→". Empty for a key that is shown by its number only.
std::string keyLabel(std::uint16_t keyCode);

// "Ctrl" or "Control", for one modifier's bit.
std::string modifierWord(std::uint64_t modifier, KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

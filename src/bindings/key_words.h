// Names keys in words, for screen readers and for the list of keys: "Right Arrow", "Keypad 7".
//
// PC keyboards label some keys differently: F13 is Print Screen there.
//
// Thread:  any; pure functions.
// Errors:  none. If a key has no name in words, its label is returned.
#pragma once

#include "bindings/keyboard_kind.h"
#include "core/lang.h"

#include <cstdint>
#include <string>

namespace glidemap {

std::string keyWords(std::uint16_t keyCode, const Lang& lang,
                     KeyboardKind keyboard = usualKeyboard());

// Returns the label that shortcut texts show for the key, such as "→". Returns an empty text for a
// key without a label; shortcut texts show the number of such a key.
std::string keyLabel(std::uint16_t keyCode);

// Returns the name of a single modifier bit, such as "Ctrl" or "Control".
std::string modifierWord(std::uint64_t modifier, KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

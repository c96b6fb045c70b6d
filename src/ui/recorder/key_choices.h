// The keys that can be chosen from a list instead of being pressed, and how they are found in it.
//
// They are found by their words in either language and by their label; Print Screen is found as F13, too.
//
// Units:   virtual key codes.
// Thread:  any.
// Errors:  none; a text that matches no key finds nothing.
#pragma once

#include "bindings/key_words.h"
#include "core/lang.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

enum class KeyGroup : std::uint8_t {
    arrows,
    editing,
    functions,
    letters,
    digits,
    punctuation,
    keypad
};

std::string label(KeyGroup group, const Lang& lang);

// Never empty.
struct FoundKeys {
    KeyGroup group{};
    std::vector<std::uint16_t> keyCodes;

    friend bool operator==(const FoundKeys&, const FoundKeys&) = default;
};

// All of them for a text without words.
std::vector<FoundKeys> findKeys(std::string_view text, KeyboardKind keyboard = usualKeyboard());

// "Right Arrow (→)", or "K" where the words are the label.
std::string keyChoice(std::uint16_t keyCode, const Lang& lang,
                      KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

// The keys that the user can choose from a list instead of pressing them, and a search for that
// list.
//
// A key matches by its name and its group's name in either language, and by its label. The label of
// Print Screen is "F13".
//
// Units:   virtual key codes.
// Thread:  any.
// Errors:  none; without a match the result is empty.
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

// A group with its matching keys; never empty.
struct FoundKeys {
    KeyGroup group{};
    std::vector<std::uint16_t> keyCodes;

    friend bool operator==(const FoundKeys&, const FoundKeys&) = default;
};

// Returns the keys that match the text; all keys if the text has no words.
std::vector<FoundKeys> findKeys(std::string_view text, KeyboardKind keyboard = usualKeyboard());

// Returns the text of a list entry: "Right Arrow (→)", or just "K" if the name equals the label.
std::string keyChoice(std::uint16_t keyCode, const Lang& lang,
                      KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

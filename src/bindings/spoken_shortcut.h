// Writes a shortcut as text: in words for screen readers, and in the notation of PC keyboards.
//
// Thread:  any; pure functions.
#pragma once

#include "bindings/key_shortcut.h"
#include "bindings/keyboard_kind.h"
#include "core/lang.h"

#include <array>
#include <cstdint>
#include <string>

namespace glidemap {

// All modifiers, in the order in which the text of a shortcut lists them.
inline constexpr std::array allModifiers = {modifier::control, modifier::option, modifier::shift,
                                            modifier::command};

// Returns the symbols of these modifiers, in shortcut order: "⌃⌥".
std::string modifierSymbols(std::uint64_t modifiers);

// Returns the shortcut in words, such as "Option Command Right Arrow".
std::string spokenShortcut(const KeyShortcut& shortcut, const Lang& lang,
                           KeyboardKind keyboard = usualKeyboard());

// Returns the shortcut in the notation of this kind of keyboard, such as "Alt+Super+→". Empty for
// an Apple keyboard, whose notation is displayString().
std::string writtenShortcut(const KeyShortcut& shortcut, KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

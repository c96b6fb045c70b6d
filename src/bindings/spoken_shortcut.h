// A shortcut in words, for screen readers and for keyboards with key names instead of symbols.
//
// Thread:  any; pure functions.
// Errors:  none. A key that has no name in words is read by its label.
#pragma once

#include "bindings/key_shortcut.h"
#include "bindings/keyboard_kind.h"
#include "core/lang.h"

#include <array>
#include <cstdint>
#include <string>

namespace glidemap {

// In the order of a shortcut.
inline constexpr std::array allModifiers = {modifier::control, modifier::option, modifier::shift,
                                            modifier::command};

// The symbols of these modifiers alone, in shortcut order: "⌃⌥".
std::string modifierSymbols(std::uint64_t modifiers);

// "Option Command Right Arrow".
std::string spokenShortcut(const KeyShortcut& shortcut, const Lang& lang,
                           KeyboardKind keyboard = usualKeyboard());

// "Alt+Super+→", the notation for keyboards of that kind; empty if it would repeat the symbols.
std::string writtenShortcut(const KeyShortcut& shortcut, KeyboardKind keyboard = usualKeyboard());

} // namespace glidemap

// The kind of keyboard, which determines the names of its keys.
//
// Thread:  any; the platform sets the usual kind once, on startup.
// Errors:  none.
#pragma once

#include <cstdint>

namespace glidemap {

enum class KeyboardKind : std::uint8_t {
    apple, // Control, Option, Shift, Command
    pc,    // Ctrl, Alt, Shift, Super
};

// The keyboard that the program assumes; initially `apple`.
void setUsualKeyboard(KeyboardKind kind);
KeyboardKind usualKeyboard();

} // namespace glidemap

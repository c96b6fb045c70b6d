// The names of keys on this system's keyboards.
//
// Thread:  any; the usual kind is set once on startup, by the home that runs.
// Errors:  none.
#pragma once

#include <cstdint>

namespace glidemap {

enum class KeyboardKind : std::uint8_t {
    apple, // Control, Option, Shift, Command
    pc,    // Ctrl, Alt, Shift, Super
};

// Apple's until it is set.
void setUsualKeyboard(KeyboardKind kind);
KeyboardKind usualKeyboard();

} // namespace glidemap

// The kind of keyboard, which determines the names of its keys.
//
// Thread:  any; the platform sets the default kind once, on startup.
// Errors:  none.
#pragma once

#include <cstdint>

namespace glidemap {

enum class KeyboardKind : std::uint8_t {
    apple, // Control, Option, Shift, Command
    pc,    // Ctrl, Alt, Shift, Super
};

// The default is `apple`.
void setUsualKeyboard(KeyboardKind kind);
KeyboardKind usualKeyboard();

} // namespace glidemap

// Maps virtual key codes, which shortcuts contain, to the kernel's key codes and back. Only keys
// with such a pair of codes can be typed and recorded.
//
// Both codes identify a position on the keyboard, not a letter, so the user's keyboard layout
// applies to both in the same way. Each code has at most one counterpart in each direction. Keys
// with different labels are matched by their position.
//
// Thread:  any.
// Errors:  returns nullopt for a code without a counterpart.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace glidemap {

struct KeyCodePair {
    std::uint16_t keyCode = 0; // the virtual key code
    std::uint16_t kernelCode = 0;
};

// Returns the pairs, sorted by virtual key code.
std::span<const KeyCodePair> keyCodePairs();

std::optional<std::uint16_t> kernelCodeOf(std::uint16_t keyCode);
std::optional<std::uint16_t> keyCodeOf(std::uint16_t kernelCode);

} // namespace glidemap

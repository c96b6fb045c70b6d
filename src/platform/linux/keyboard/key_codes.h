// Maps virtual key codes, which shortcuts consist of, to the kernel's key codes and back: all keys
// that can be typed and recorded.
//
// Both codes name a position on the keyboard and not a letter, so the user's layout applies
// equally. Each code has at most one counterpart in either direction. If the labels of a key
// differ, its position decides.
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

// Sorted by virtual key code.
std::span<const KeyCodePair> keyCodePairs();

std::optional<std::uint16_t> kernelCodeOf(std::uint16_t keyCode);
std::optional<std::uint16_t> keyCodeOf(std::uint16_t kernelCode);

} // namespace glidemap

// The keys that can be typed and recorded: virtual key codes, which are what a shortcut is made of,
// beside the kernel's codes of the same keys.
//
// Both name a place on the keyboard and not a letter, so the user's layout applies in the same way.
// Each code has at most one counterpart, in both directions. Where the two worlds print different
// things on one key, the place decides.
//
// Thread:  any.
// Errors:  a code without a counterpart is answered with nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace glidemap {

struct KeyCodePair {
    std::uint16_t keyCode = 0; // the virtual key code
    std::uint16_t kernelCode = 0;
};

// Ascending by virtual key code.
std::span<const KeyCodePair> keyCodePairs();

std::optional<std::uint16_t> kernelCodeOf(std::uint16_t keyCode);
std::optional<std::uint16_t> keyCodeOf(std::uint16_t kernelCode);

} // namespace glidemap

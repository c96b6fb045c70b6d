// A key with its modifiers. The user records it, and the program posts it as key events.
//
// Units:   `keyCode` is a virtual key code of the US layout; `modifiers` is a bit mask of event
//          flags. Unknown bits are preserved.
// Thread:  any; a plain value.
// Errors:  none.
#pragma once

#include <cstdint>
#include <string>

namespace glidemap {

namespace modifier {
inline constexpr std::uint64_t shift = 0x20000;
inline constexpr std::uint64_t control = 0x40000;
inline constexpr std::uint64_t option = 0x80000;
inline constexpr std::uint64_t command = 0x100000;
} // namespace modifier

struct KeyShortcut {
    std::uint16_t keyCode = 0;
    std::uint64_t modifiers = 0;

    // Returns the modifiers' symbols, always in the order ⌃⌥⇧⌘, then the key's name: "⌥⌘→".
    std::string displayString() const;

    friend bool operator==(const KeyShortcut&, const KeyShortcut&) = default;
};

} // namespace glidemap

// Converts key events with modifier flags into the key changes of a keyboard, where modifiers are
// keys: pressed before the key that needs them, released after it.
//
// Only the left-hand keys serve as modifiers; the right-hand ones have other functions in many
// layouts. A modifier key that is typed by itself does not press itself first.
//
// Thread:  one.
// Owner:   the virtual keyboard, because the state describes which keys are down on it.
// Errors:  as return values. Pressing a pressed key or releasing a released one changes nothing.
#pragma once

#include "dispatch/key_event_poster.h"

#include <cstdint>
#include <span>
#include <vector>

namespace glidemap {

struct KeyChange {
    std::uint16_t kernelCode = 0;
    bool down = false;

    friend bool operator==(const KeyChange&, const KeyChange&) = default;
};

class KeyStrokes {
public:
    // Returns an empty list if any of the events has a key without a kernel code.
    std::vector<KeyChange> changesFor(std::span<const KeyEvent> events);

    // Releases all keys.
    std::vector<KeyChange> releaseAll();

private:
    void press(std::uint16_t kernelCode, std::uint64_t flags, std::vector<KeyChange>& changes);
    void release(std::uint16_t kernelCode, std::vector<KeyChange>& changes);
    void setModifiers(std::span<const std::uint16_t> wanted, std::vector<KeyChange>& changes);

    std::vector<std::uint16_t> keys;      // pressed by key events, in order
    std::vector<std::uint16_t> modifiers; // pressed for the flags of `keys`, in order
};

} // namespace glidemap

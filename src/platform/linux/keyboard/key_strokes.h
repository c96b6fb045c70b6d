// Converts key events with modifier flags into key changes of a keyboard. On a keyboard, modifiers
// are keys: they are pressed before the key that needs them, and released after it.
//
// Only the left-hand modifier keys are used, because the right-hand ones have other functions in
// many layouts. If the typed key is itself a modifier key, that modifier is not pressed in
// addition.
//
// Thread:  one.
// Owner:   the virtual keyboard, because the state describes which keys are down on it.
// Errors:  returned as values. Pressing a pressed key or releasing a released key changes nothing.
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
    // Returns an empty list if any of the events is for a key without a kernel code.
    std::vector<KeyChange> changesFor(std::span<const KeyEvent> events);

    // Returns the changes that release all keys.
    std::vector<KeyChange> releaseAll();

private:
    void press(std::uint16_t kernelCode, std::uint64_t flags, std::vector<KeyChange>& changes);
    void release(std::uint16_t kernelCode, std::vector<KeyChange>& changes);
    void setModifiers(std::span<const std::uint16_t> wanted, std::vector<KeyChange>& changes);

    std::vector<std::uint16_t> keys; // keys pressed by key events, in order
    // Modifier keys pressed for the flags of the last key press, in order.
    std::vector<std::uint16_t> modifiers;
};

} // namespace glidemap

// Turns key events, whose modifiers are flags, into the key changes of a keyboard, whose modifiers
// are keys: pressed before the key that wants them, let go of after it.
//
// Only the left-hand keys stand for modifiers; the right-hand ones mean other things in many
// layouts. A modifier key that is typed for its own sake does not press itself first.
//
// Thread:  one.
// Owner:   the virtual keyboard, for it remembers what is down on it.
// Errors:  as answers. Pressing what is down and letting go of what is up changes nothing.
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
    // Empty if any of the events is about a key that does not exist here.
    std::vector<KeyChange> changesFor(std::span<const KeyEvent> events);

    // Lets go of everything.
    std::vector<KeyChange> releaseAll();

private:
    void press(std::uint16_t kernelCode, std::uint64_t flags, std::vector<KeyChange>& changes);
    void release(std::uint16_t kernelCode, std::vector<KeyChange>& changes);
    void setModifiers(std::span<const std::uint16_t> wanted, std::vector<KeyChange>& changes);

    std::vector<std::uint16_t> keys;      // down for their own sake, in order
    std::vector<std::uint16_t> modifiers; // down for the sake of those, in order
};

} // namespace glidemap

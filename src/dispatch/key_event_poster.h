// Port: posts key events on the user's behalf.
//
// Units:   virtual key codes and event flags, as in a shortcut.
// Thread:  the main thread.
// Errors:  none are reported. Without permission, or if the system lacks the key, no event is
//          posted.
#pragma once

#include <cstdint>
#include <span>

namespace glidemap {

struct KeyEvent {
    std::uint16_t keyCode = 0;
    bool down = false;
    std::uint64_t flags = 0; // the event's modifiers, regardless of held keys

    friend bool operator==(const KeyEvent&, const KeyEvent&) = default;
};

class KeyEventPoster {
public:
    KeyEventPoster() = default;
    KeyEventPoster(const KeyEventPoster&) = delete;
    KeyEventPoster& operator=(const KeyEventPoster&) = delete;
    virtual ~KeyEventPoster() = default;

    // Posts all events in order and without delay, or none of them.
    virtual void post(std::span<const KeyEvent> events) = 0;
};

} // namespace glidemap

// Port: the key presses that reach the program, taken before any of its windows sees them.
//
// Thread:  the main thread.
// Owner:   the program, shared with whoever records a shortcut. One records at a time, and abandons
//          the keys before it goes.
// Errors:  a key that has no virtual key code is told without one, and taken all the same.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

class QWindow;

namespace glidemap {

class KeyPresses {
public:
    struct Press {
        std::optional<std::uint16_t> keyCode; // the hardware's, as shortcuts store it

        // The device-independent ones, in the bits of the system's event flags; Caps Lock and the
        // like among them, which shortcuts do not store.
        std::uint64_t flags = 0;

        friend bool operator==(const Press&, const Press&) = default;
    };

    KeyPresses() = default;
    KeyPresses(const KeyPresses&) = delete;
    KeyPresses& operator=(const KeyPresses&) = delete;
    virtual ~KeyPresses() = default;

    // The handler is told of each press from now on. It may stop this.
    // Called while it runs with the modifiers that are held now, in the bits of a shortcut. Not every home can tell.
    std::function<void(std::uint64_t)> onModifiers;

    virtual void start(std::function<void(const Press&)> handler) = 0;

    // Leaves alone what comes from now on, but for what belongs to a press that was taken.
    virtual void stop() = 0;

    // The same without the rest of a press.
    virtual void abandon() { stop(); }

    // Borrows the keys that the desktop keeps for itself for this window, which has the focus; null
    // gives them back. Not every home can.
    virtual void borrowDesktopKeys(QWindow* /*window*/) {}
};

} // namespace glidemap

// Port: captures the key presses in the program before its windows receive them.
//
// Thread:  the main thread.
// Owner:   the program; shared with the shortcut recorders. One recorder uses it at a time, and
//          calls abandon() before its destruction.
// Errors:  a key without a virtual key code is captured and reported without a code.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

class QWindow;

namespace glidemap {

class KeyPresses {
public:
    struct Press {
        std::optional<std::uint16_t> keyCode; // of the hardware, as stored in shortcuts

        // Device-independent modifiers, in the bits of the system's event flags. They include Caps
        // Lock and similar flags, which shortcuts do not store.
        std::uint64_t flags = 0;

        friend bool operator==(const Press&, const Press&) = default;
    };

    KeyPresses() = default;
    KeyPresses(const KeyPresses&) = delete;
    KeyPresses& operator=(const KeyPresses&) = delete;
    virtual ~KeyPresses() = default;

    // Called with the held modifiers, in the bits of a shortcut, between start() and stop(). Not
    // every platform can report them.
    std::function<void(std::uint64_t)> onModifiers;

    virtual void start(std::function<void(const Press&)> handler) = 0;

    // Ignores new presses, but still swallows the rest of captured ones.
    virtual void stop() = 0;

    // Like stop(), but also forgets captured presses.
    virtual void abandon() { stop(); }

    // Also captures the keys that the desktop reserves for itself, for this window, which has the
    // focus; null gives them back. Not every platform supports this.
    virtual void captureDesktopKeys(QWindow* /*window*/) {}
};

} // namespace glidemap

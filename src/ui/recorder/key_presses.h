// Port: captures key presses in the program before the program's windows receive them.
//
// Thread:  the main thread.
// Owner:   the program; shared with the shortcut recorders. Only one recorder may use it at a time.
//          A recorder must call abandon() before it is destroyed.
// Errors:  a key without a virtual key code is captured, and reported without a code.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

class QWindow;

namespace glidemap {

class KeyPresses {
public:
    struct Press {
        std::optional<std::uint16_t> keyCode; // of the physical key, as stored in shortcuts

        // The held modifiers, as the system's device-independent event flags. They include Caps
        // Lock and other flags that shortcuts do not store.
        std::uint64_t flags = 0;

        friend bool operator==(const Press&, const Press&) = default;
    };

    KeyPresses() = default;
    KeyPresses(const KeyPresses&) = delete;
    KeyPresses& operator=(const KeyPresses&) = delete;
    virtual ~KeyPresses() = default;

    // Called with the held modifiers, as flags of a shortcut, between start() and stop(). Never
    // called on platforms that cannot report modifiers.
    std::function<void(std::uint64_t)> onModifiers;

    // Called when capturing has stopped and all captured keys are released.
    std::function<void()> onDone;

    virtual void start(std::function<void(const Press&)> handler) = 0;

    // Stops capturing new presses, but still swallows the auto-repeats and releases of captured
    // ones.
    virtual void stop() = 0;

    // Like stop(), but no longer swallows the auto-repeats and releases of captured presses. A
    // class whose stop() still swallows these events must override this function.
    virtual void abandon() { stop(); }

    // Returns whether a captured key is still pressed.
    virtual bool holdsKeys() const { return false; }

    // Also captures the keys that the desktop reserves for itself. The given window receives them,
    // and must have the focus. If the window is null, these keys return to the desktop. Platforms
    // that do not support this do nothing.
    virtual void captureDesktopKeys(QWindow* /*window*/) {}
};

} // namespace glidemap

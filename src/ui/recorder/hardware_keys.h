// Port: which key of the keyboard a window system's key event comes from.
//
// Thread:  the main thread.
// Errors:  a key that has no virtual key code is answered with nothing.
#pragma once

#include <cstdint>
#include <optional>

namespace glidemap {

class HardwareKeys {
public:
    // As the window system gives them; each home looks at what it understands.
    struct NativeKey {
        std::uint32_t scanCode = 0;
        std::uint32_t virtualKey = 0;
        std::uint32_t modifiers = 0;
    };

    HardwareKeys() = default;
    HardwareKeys(const HardwareKeys&) = delete;
    HardwareKeys& operator=(const HardwareKeys&) = delete;
    virtual ~HardwareKeys() = default;

    virtual std::optional<std::uint16_t> virtualKeyCode(const NativeKey& key) const = 0;

    // Whether Caps Lock was on.
    virtual bool capsLock(const NativeKey& key) const = 0;
};

} // namespace glidemap

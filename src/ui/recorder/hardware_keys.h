// Port: maps a window system's key event to a physical key, as a virtual key code.
//
// Thread:  the main thread.
// Errors:  returns nullopt for a key without a virtual key code.
#pragma once

#include <cstdint>
#include <optional>

namespace glidemap {

class HardwareKeys {
public:
    // The codes of a key event in the window system's own form. Each platform uses the members it
    // needs.
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

    // Whether Caps Lock was on at the time of the event.
    virtual bool capsLock(const NativeKey& key) const = 0;
};

} // namespace glidemap

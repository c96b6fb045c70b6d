#include "platform/linux/keyboard/evdev_hardware_keys.h"

#include "platform/linux/keyboard/key_codes.h"

namespace glidemap {

namespace {

constexpr std::uint32_t scanCodeOffset = 8;

// The modifier bit that the X protocol names "Lock". Keymaps still use it for Caps Lock.
constexpr std::uint32_t lockModifier = 0x2;

} // namespace

std::optional<std::uint16_t> EvdevHardwareKeys::virtualKeyCode(const NativeKey& key) const {
    if (key.scanCode < scanCodeOffset || key.scanCode - scanCodeOffset > UINT16_MAX) {
        return std::nullopt;
    }
    return keyCodeOf(static_cast<std::uint16_t>(key.scanCode - scanCodeOffset));
}

bool EvdevHardwareKeys::capsLock(const NativeKey& key) const {
    return (key.modifiers & lockModifier) != 0;
}

} // namespace glidemap

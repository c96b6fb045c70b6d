// Which key a key event of an X server or of a Wayland compositor comes from.
//
// Both hand on the kernel's code, 8 higher, because the X protocol keeps the lowest ones for itself.
// The layout plays no part: it is the place of the key that counts.
//
// Thread:  any; keeps nothing.
// Errors:  a key without a virtual key code is answered with nothing.
#pragma once

#include "ui/recorder/hardware_keys.h"

namespace glidemap {

class EvdevHardwareKeys : public HardwareKeys {
public:
    std::optional<std::uint16_t> virtualKeyCode(const NativeKey& key) const override;
    bool capsLock(const NativeKey& key) const override;
};

} // namespace glidemap

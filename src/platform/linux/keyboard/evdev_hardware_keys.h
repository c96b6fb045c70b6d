// Maps the key events of an X server or a Wayland compositor to physical keys.
//
// On both systems, the scan code of a key event is the kernel's key code plus 8, because the X
// protocol reserves the lowest codes. The keyboard layout is ignored, because only the position of
// the key matters.
//
// Thread:  any; stateless.
// Errors:  returns nullopt for a key without a virtual key code.
#pragma once

#include "ui/recorder/hardware_keys.h"

namespace glidemap {

class EvdevHardwareKeys : public HardwareKeys {
public:
    std::optional<std::uint16_t> virtualKeyCode(const NativeKey& key) const override;
    bool capsLock(const NativeKey& key) const override;
};

} // namespace glidemap

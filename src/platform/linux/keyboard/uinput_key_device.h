// The kernel's virtual keyboard, "Glidemap Keyboard": it has the keys that can be typed and no
// others.
//
// Thread:  one at a time.
// Owner:   UinputKeyboard. The keyboard is unplugged when this is destroyed.
// Errors:  as answers; most likely /dev/uinput may not be written yet.
#pragma once

#include "platform/linux/keyboard/key_device.h"

namespace glidemap {

class UinputKeyDevice : public KeyDevice {
public:
    static constexpr const char* name = "Glidemap Keyboard";

    UinputKeyDevice() = default;
    ~UinputKeyDevice() override;

    bool plugIn() override;
    void unplug() override;
    bool write(std::span<const KeyChange> changes) override;

private:
    int descriptor = -1;
};

} // namespace glidemap

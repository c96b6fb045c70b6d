// The virtual keyboard "Glidemap Keyboard", created with uinput. It has only the keys that can be
// typed.
//
// Thread:  any, but only one call at a time.
// Owner:   UinputKeyboard. The destructor removes the device.
// Errors:  returned as values. Usually, the cause is missing write permission for /dev/uinput.
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

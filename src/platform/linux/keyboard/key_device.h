// Port: a virtual keyboard whose events other programs receive.
//
// Thread:  any, but only one call at a time.
// Errors:  returned as values.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <span>

namespace glidemap {

class KeyDevice {
public:
    KeyDevice() = default;
    KeyDevice(const KeyDevice&) = delete;
    KeyDevice& operator=(const KeyDevice&) = delete;
    virtual ~KeyDevice() = default;

    // Creates the device if it does not exist. Returns false on failure.
    virtual bool plugIn() = 0;

    // Removes the device if it exists. The system then releases all keys that are down on it.
    virtual void unplug() = 0;

    // Writes each change as a complete report. No other event can come between the changes. Returns
    // false if not all changes were written, for example because the device does not exist.
    virtual bool write(std::span<const KeyChange> changes) = 0;
};

} // namespace glidemap

// Port: a keyboard that other programs receive events from.
//
// Thread:  any, but one call at a time.
// Errors:  as return values.
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

    // Creates the device unless it exists. Returns false on failure.
    virtual bool plugIn() = 0;

    // Removes the device if it exists. The system releases the keys that are down on it.
    virtual void unplug() = 0;

    // Writes all changes, each as a complete report, with no other event between them. Returns
    // false if any is missing, for example because the device does not exist.
    virtual bool write(std::span<const KeyChange> changes) = 0;
};

} // namespace glidemap

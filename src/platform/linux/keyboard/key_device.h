// Port: a keyboard that exists for other programs.
//
// Thread:  one at a time.
// Errors:  as answers.
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

    // Plugs it in unless it is plugged in already. False if it cannot be.
    virtual bool plugIn() = 0;

    // Unplugs it if it is plugged in. The system takes back the keys that are down on it.
    virtual void unplug() = 0;

    // All changes, each complete by itself, with nothing between them. False if they were not all
    // made, as while it is not plugged in.
    virtual bool write(std::span<const KeyChange> changes) = 0;
};

} // namespace glidemap

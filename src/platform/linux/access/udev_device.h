// Reads the udev properties that determine the access to an input device.
//
// Thread:  the thread of the device's udev context.
// Errors:  none; an unknown device is not a touchpad.
#pragma once

#include <libudev.h>

namespace glidemap {

// Whether the device is the event node of a touchpad to which the udev rules grant access. These
// rules exclude our clones, and any node that is also a keyboard.
bool isTouchpadOfRule(udev_device* event);

} // namespace glidemap

// Reads the udev properties that decide about access to an input device.
//
// Thread:  the thread of the device's udev context.
// Errors:  none; an unknown device is not a touchpad.
#pragma once

#include <libudev.h>

namespace glidemap {

// The event node of a touchpad that is not one of our clones, and that the rules give access to: one
// that is a keyboard, too, they do not.
bool isGivenTouchpad(udev_device* event);

} // namespace glidemap

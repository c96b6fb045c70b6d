// What udev says about an input device that matters for access to it.
//
// Thread:  that of the device's context.
// Errors:  none; an unknown device is no touchpad.
#pragma once

#include <libudev.h>

namespace glidemap {

// The event node of a touchpad that is not one of our clones, and that the rules give access to: one
// that is a keyboard, too, they do not.
bool isGivenTouchpad(udev_device* event);

} // namespace glidemap

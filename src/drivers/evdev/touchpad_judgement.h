// Whether the driver uses an event device, by what udev and sysfs say of it. No device is opened.
//
// Thread:  any.
// Owner:   the texts are constants.
// Errors:  none; a device that says nothing of itself is not used.
#pragma once

struct udev_device;

namespace glidemap {

// Why the driver does not use this event device, for people; null if it does. Whether this user may
// read it is another question.
const char* reasonNotToUse(udev_device* event);

// It has the touch axes of a touchpad or udev calls it one: a user may expect it to be used.
bool isLikeATouchpad(udev_device* event);

// A clone that stands in for a touchpad, of this process or of another one.
bool isClone(udev_device* event);

} // namespace glidemap

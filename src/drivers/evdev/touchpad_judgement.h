// Decides whether the driver uses an event device, from udev and sysfs, without opening any device.
//
// Thread:  any.
// Owner:   the texts are constants.
// Errors:  none; a device without properties is not used.
#pragma once

struct udev_device;

namespace glidemap {

// Returns a human-readable reason why the driver does not use this event device; null if it does.
// Ignores whether this user may read it.
const char* reasonNotToUse(udev_device* event);

// Returns whether the device has a touchpad's axes or udev tags it as a touchpad: a user may expect
// the driver to use it.
bool resemblesTouchpad(udev_device* event);

// Returns whether the device is a clone of a touchpad, made by this process or another one.
bool isClone(udev_device* event);

} // namespace glidemap

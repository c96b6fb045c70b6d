// Decides whether the driver uses an event device. Reads only the data of udev and sysfs and opens
// no device.
//
// Thread:  any.
// Owner:   the returned texts are constants.
// Errors:  none; a device without properties is not used.
#pragma once

struct udev_device;

namespace glidemap {

// Returns a human-readable reason why the driver does not use this event device, or null if it
// does. Does not check whether this user may read the device.
const char* reasonNotToUse(udev_device* event);

// Returns whether the device has a touchpad's axes or udev's touchpad tag, so that a user may
// expect the driver to use it.
bool resemblesTouchpad(udev_device* event);

// Returns whether the device is a clone of a touchpad, made by this process or another one.
bool isClone(udev_device* event);

} // namespace glidemap

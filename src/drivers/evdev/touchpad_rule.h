// Decides which devices are touchpads, by the same udev properties as the access rule in
// packaging/udev. The driver neither opens nor grabs a node that combines a touchpad with a
// keyboard, because it could then read the keys.
//
// Thread:  any, one at a time for a device.
// Errors:  none; a device without properties is not a touchpad.
#pragma once

struct udev_device;

namespace glidemap {

bool isTouchpadByRule(udev_device* event);

} // namespace glidemap

// Which devices udev calls touchpads, by the properties that the access rule in packaging/udev goes
// by: a node that touchpad and keyboard share is neither opened nor grabbed, because whatever is
// typed on it could be read.
//
// Thread:  any, one at a time for a device.
// Errors:  none; a device without properties is no touchpad.
#pragma once

struct udev_device;

namespace glidemap {

bool isTouchpadByRule(udev_device* event);

} // namespace glidemap

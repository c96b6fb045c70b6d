// Reads the udev properties that decide about access to an input device.
//
// Thread:  the thread of the device's udev context.
// Errors:  none; an unknown device is not a touchpad.
#pragma once

#include <libudev.h>

#include <memory>

namespace glidemap {

struct UdevRelease {
    void operator()(udev* object) const { udev_unref(object); }
    void operator()(udev_device* object) const { udev_device_unref(object); }
    void operator()(udev_enumerate* object) const { udev_enumerate_unref(object); }
    void operator()(udev_monitor* object) const { udev_monitor_unref(object); }
};
template <typename Object>
using UdevHandle = std::unique_ptr<Object, UdevRelease>;

// Whether this is the event node of a touchpad that the udev rules grant. They exclude our clones
// and nodes that are also a keyboard.
bool isGivenTouchpad(udev_device* event);

} // namespace glidemap

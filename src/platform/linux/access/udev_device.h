// What udev says about an input device that matters for access to it.
//
// Thread:  that of the device's context.
// Errors:  none; an unknown device is no touchpad.
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

// The event node of a touchpad that is not one of our clones, and that the rules give access to: one
// that is a keyboard, too, they do not.
bool isGivenTouchpad(udev_device* event);

} // namespace glidemap

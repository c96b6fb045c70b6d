// Owning pointers for libudev's reference-counted objects.
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

} // namespace glidemap

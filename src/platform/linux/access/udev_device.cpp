#include "platform/linux/access/udev_device.h"

#include <string_view>

namespace glidemap {

namespace {

// The beginning of the physical location (PHYS) of all virtual devices that this program creates.
constexpr std::string_view ownPlace = "glidemap";

bool hasProperty(udev_device* device, const char* name) {
    const char* value = udev_device_get_property_value(device, name);
    return value != nullptr && std::string_view(value) == "1";
}

bool isOurs(udev_device* event) {
    udev_device* device = udev_device_get_parent_with_subsystem_devtype(event, "input", nullptr);
    const char* place = device != nullptr ? udev_device_get_sysattr_value(device, "phys") : nullptr;
    return place != nullptr && std::string_view(place).starts_with(ownPlace);
}

} // namespace

bool isTouchpadOfRule(udev_device* event) {
    return udev_device_get_devnode(event) != nullptr && hasProperty(event, "ID_INPUT_TOUCHPAD") &&
           !hasProperty(event, "ID_INPUT_KEYBOARD") && !hasProperty(event, "ID_INPUT_KEY") &&
           !isOurs(event);
}

} // namespace glidemap

#include "drivers/evdev/touchpad_judgement.h"

#include "drivers/evdev/capability_bits.h"
#include "drivers/evdev/touchpad_rule.h"
#include "drivers/evdev/uinput_clone.h"

#include <libudev.h>
#include <linux/input-event-codes.h>

#include <string>
#include <string_view>

namespace glidemap {

namespace {

// The touchpad's properties belong to the input device, the parent of the event node.
udev_device* inputDeviceOf(udev_device* event) {
    return udev_device_get_parent_with_subsystem_devtype(event, "input", nullptr);
}

std::string attribute(udev_device* event, const char* name) {
    udev_device* device = inputDeviceOf(event);
    const char* value = device != nullptr ? udev_device_get_sysattr_value(device, name) : nullptr;
    return value != nullptr ? value : "";
}

bool isCalledTouchpad(udev_device* event) {
    const char* value = udev_device_get_property_value(event, "ID_INPUT_TOUCHPAD");
    return value != nullptr && std::string_view(value) == "1";
}

} // namespace

// A touchpad has slots with tracking ids and INPUT_PROP_POINTER. A touchscreen lacks the property,
// and a pad that cannot track fingers lacks the slots. The touchpad drivers of all kernels still in
// use set the property.
const char* reasonNotToUse(udev_device* event) {
    if (udev_device_get_devnode(event) == nullptr || inputDeviceOf(event) == nullptr) {
        return "it has no event node";
    }
    if (isClone(event)) {
        return "it is a clone that Glidemap made of a touchpad";
    }
    if (!isCalledTouchpad(event)) {
        return "udev does not tag it as a touchpad";
    }
    if (!isTouchpadByRule(event)) {
        return "it is also a keyboard, so its keys could be read";
    }
    const std::string axes = attribute(event, "capabilities/abs");
    if (!hasBit(axes, ABS_MT_SLOT) || !hasBit(axes, ABS_MT_TRACKING_ID) ||
        !hasBit(axes, ABS_MT_POSITION_X) || !hasBit(axes, ABS_MT_POSITION_Y)) {
        return "it cannot track separate fingers";
    }
    const std::string properties = attribute(event, "properties");
    if (hasBit(properties, INPUT_PROP_DIRECT)) {
        return "it is a touchscreen";
    }
    return hasBit(properties, INPUT_PROP_POINTER) ? nullptr
                                                  : "its driver does not mark it as a pointer";
}

bool resemblesTouchpad(udev_device* event) {
    const std::string axes = attribute(event, "capabilities/abs");
    return isCalledTouchpad(event) ||
           (hasBit(axes, ABS_MT_SLOT) && hasBit(axes, ABS_MT_POSITION_X));
}

bool isClone(udev_device* event) {
    return UinputClone::isCloneAt(attribute(event, "phys"));
}

} // namespace glidemap

#include "drivers/evdev/touchpad_rule.h"

#include <libudev.h>

#include <string_view>

namespace glidemap {

namespace {

bool isSet(udev_device* device, const char* property) {
    const char* value = udev_device_get_property_value(device, property);
    return value != nullptr && std::string_view(value) == "1";
}

} // namespace

bool isTouchpadByRule(udev_device* event) {
    return isSet(event, "ID_INPUT_TOUCHPAD") && !isSet(event, "ID_INPUT_KEYBOARD") &&
           !isSet(event, "ID_INPUT_KEY");
}

} // namespace glidemap

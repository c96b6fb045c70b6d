#include "platform/linux/access/udev_input_nodes.h"

#include <fcntl.h>
#include <libudev.h>
#include <unistd.h>

#include <memory>
#include <string_view>

namespace glidemap {

namespace {

constexpr const char* uinputNode = "/dev/uinput";

// Where our own devices say that they are connected.
constexpr std::string_view ownPlace = "glidemap";

struct Release {
    void operator()(udev* object) const { udev_unref(object); }
    void operator()(udev_device* object) const { udev_device_unref(object); }
    void operator()(udev_enumerate* object) const { udev_enumerate_unref(object); }
};
template <typename Object>
using Handle = std::unique_ptr<Object, Release>;

bool hasProperty(udev_device* device, const char* name) {
    const char* value = udev_device_get_property_value(device, name);
    return value != nullptr && std::string_view(value) == "1";
}

bool isOurs(udev_device* event) {
    udev_device* device = udev_device_get_parent_with_subsystem_devtype(event, "input", nullptr);
    const char* place = device != nullptr ? udev_device_get_sysattr_value(device, "phys") : nullptr;
    return place != nullptr && std::string_view(place).starts_with(ownPlace);
}

// As the rules say that hand out the access.
bool isGiven(udev_device* event) {
    return hasProperty(event, "ID_INPUT_TOUCHPAD") && !hasProperty(event, "ID_INPUT_KEYBOARD") &&
           !hasProperty(event, "ID_INPUT_KEY");
}

bool isPermitted(const char* node, int what) {
    return faccessat(AT_FDCWD, node, what, AT_EACCESS) == 0;
}

} // namespace

std::vector<std::string> UdevInputNodes::touchpads() {
    std::vector<std::string> nodes;
    const Handle<udev> context(udev_new());
    const Handle<udev_enumerate> found(context ? udev_enumerate_new(context.get()) : nullptr);
    if (found == nullptr) {
        return nodes;
    }
    udev_enumerate_add_match_subsystem(found.get(), "input");
    udev_enumerate_add_match_property(found.get(), "ID_INPUT_TOUCHPAD", "1");
    udev_enumerate_add_match_sysname(found.get(), "event[0-9]*");
    udev_enumerate_scan_devices(found.get());
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(found.get())) {
        const Handle<udev_device> event(
            udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry)));
        const char* node = event != nullptr ? udev_device_get_devnode(event.get()) : nullptr;
        if (node != nullptr && isGiven(event.get()) && !isOurs(event.get())) {
            nodes.emplace_back(node);
        }
    }
    return nodes;
}

bool UdevInputNodes::mayRead(const std::string& node) {
    return isPermitted(node.c_str(), R_OK);
}

bool UdevInputNodes::mayMakeDevices() {
    return isPermitted(uinputNode, W_OK);
}

} // namespace glidemap

#include "platform/linux/access/udev_input_nodes.h"

#include "drivers/evdev/udev_handles.h"
#include "platform/linux/access/udev_device.h"

#include <fcntl.h>
#include <unistd.h>

namespace glidemap {

namespace {

constexpr const char* uinputNode = "/dev/uinput";

bool isPermitted(const char* node, int what) {
    return faccessat(AT_FDCWD, node, what, AT_EACCESS) == 0;
}

} // namespace

std::vector<std::string> UdevInputNodes::touchpads() {
    std::vector<std::string> nodes;
    const UdevHandle<udev> context(udev_new());
    const UdevHandle<udev_enumerate> found(context ? udev_enumerate_new(context.get()) : nullptr);
    if (found == nullptr) {
        return nodes;
    }
    udev_enumerate_add_match_subsystem(found.get(), "input");
    udev_enumerate_add_match_property(found.get(), "ID_INPUT_TOUCHPAD", "1");
    udev_enumerate_add_match_sysname(found.get(), "event[0-9]*");
    udev_enumerate_scan_devices(found.get());
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(found.get())) {
        const UdevHandle<udev_device> event(
            udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry)));
        const char* node = event != nullptr ? udev_device_get_devnode(event.get()) : nullptr;
        if (node != nullptr && isTouchpadOfRule(event.get())) {
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

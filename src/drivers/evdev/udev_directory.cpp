#include "drivers/evdev/udev_directory.h"

#include "drivers/evdev/evdev_pad.h"
#include "drivers/evdev/touchpad_judgement.h"
#include "drivers/evdev/udev_clone_watch.h"
#include "drivers/evdev/udev_handles.h"
#include "drivers/evdev/udev_watch.h"

#include <fcntl.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace glidemap {

namespace {

std::string attribute(udev_device* device, const char* name) {
    const char* value = udev_device_get_sysattr_value(device, name);
    return value != nullptr ? value : "";
}

std::int32_t hexadecimal(udev_device* device, const char* name) {
    return static_cast<std::int32_t>(std::strtol(attribute(device, name).c_str(), nullptr, 16));
}

PadIdentity identity(udev_device* device) {
    return {
        hexadecimal(device, "id/bustype"), hexadecimal(device, "id/vendor"),
        hexadecimal(device, "id/product"), hexadecimal(device, "id/version"),
        attribute(device, "name"),         attribute(device, "phys"),
        attribute(device, "uniq"),
    };
}

struct NumberedCandidate {
    unsigned number = 0;
    PadCandidate candidate;
};

std::optional<NumberedCandidate> candidate(udev_device* event) {
    if (reasonNotToUse(event) != nullptr) {
        return std::nullopt;
    }
    udev_device* device = udev_device_get_parent_with_subsystem_devtype(event, "input", nullptr);
    const char* node = udev_device_get_devnode(event);
    const bool readable = faccessat(AT_FDCWD, node, R_OK, AT_EACCESS) == 0;
    const unsigned number = minor(udev_device_get_devnum(event));
    return NumberedCandidate{number, {node, identity(device), readable}};
}

} // namespace

std::vector<PadCandidate> UdevDirectory::candidates() {
    const UdevHandle<udev> context(udev_new());
    const UdevHandle<udev_enumerate> enumerate(context ? udev_enumerate_new(context.get())
                                                       : nullptr);
    if (enumerate == nullptr) {
        return {};
    }
    udev_enumerate_add_match_subsystem(enumerate.get(), "input");
    udev_enumerate_add_match_property(enumerate.get(), "ID_INPUT_TOUCHPAD", "1");
    udev_enumerate_add_match_sysname(enumerate.get(), "event[0-9]*");
    udev_enumerate_scan_devices(enumerate.get());

    std::vector<NumberedCandidate> found;
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumerate.get())) {
        const UdevHandle<udev_device> event(
            udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry)));
        auto each = event != nullptr ? candidate(event.get()) : std::nullopt;
        if (each.has_value()) {
            found.push_back(std::move(*each));
        }
    }
    // Sorted by the kernel's number, so that the order is the same every time.
    std::ranges::sort(found, {}, &NumberedCandidate::number);
    std::vector<PadCandidate> result;
    result.reserve(found.size());
    for (NumberedCandidate& each : found) {
        result.push_back(std::move(each.candidate));
    }
    return result;
}

std::optional<PadCandidate> UdevDirectory::candidateAt(const std::string& node) {
    const UdevHandle<udev> context(udev_new());
    const std::string name = node.substr(node.rfind('/') + 1);
    const UdevHandle<udev_device> event(
        context ? udev_device_new_from_subsystem_sysname(context.get(), "input", name.c_str())
                : nullptr);
    auto found = event != nullptr ? candidate(event.get()) : std::nullopt;
    return found.has_value() ? std::optional(std::move(found->candidate)) : std::nullopt;
}

std::unique_ptr<OpenPad> UdevDirectory::open(const PadCandidate& candidate) {
    return EvdevPad::open(candidate.node);
}

std::unique_ptr<ReturnWatch> UdevDirectory::watch() {
    return std::make_unique<UdevWatch>();
}

std::unique_ptr<CloneWatch> UdevDirectory::watchClones() {
    return std::make_unique<UdevCloneWatch>();
}

} // namespace glidemap

#include "drivers/evdev/udev_directory.h"

#include "core/open_file.h"
#include "drivers/evdev/evdev_pad.h"
#include "drivers/evdev/touchpad_judgement.h"
#include "drivers/evdev/udev_clone_watch.h"
#include "drivers/evdev/udev_handles.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <array>
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

constexpr const char* nodeFolder = "/dev/input";

// The descriptors become readable when a touchpad may have returned: udev has reported an input
// device, a node has appeared, or a node's permissions have changed. Permissions may change long
// after the node appears: the user of the seat gets access later, and a switch of sessions changes
// only permissions. A source that cannot be watched is ignored. Used on the reader's thread.
class UdevWatch : public ReturnWatch {
public:
    UdevWatch();

    std::array<int, 2> descriptors() const override;
    void acknowledge() override;

private:
    void watchNodes();

    UdevHandle<udev> context;
    UdevHandle<udev_monitor> monitor;
    OpenFile nodeChanges;
};

UdevWatch::UdevWatch() : context(udev_new()), nodeChanges(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (context != nullptr) {
        monitor.reset(udev_monitor_new_from_netlink(context.get(), "udev"));
    }
    if (monitor != nullptr) {
        udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "input", nullptr);
        udev_monitor_enable_receiving(monitor.get());
    }
    watchNodes();
}

// /dev/input disappears with its last node and reappears with its first, so the watch is added
// again after each notification. This has no effect if the folder is already watched.
void UdevWatch::watchNodes() {
    if (nodeChanges) {
        inotify_add_watch(nodeChanges.descriptor(), nodeFolder, IN_ATTRIB | IN_CREATE | IN_ONLYDIR);
    }
}

std::array<int, 2> UdevWatch::descriptors() const {
    return {monitor != nullptr ? udev_monitor_get_fd(monitor.get()) : -1, nodeChanges.descriptor()};
}

void UdevWatch::acknowledge() {
    while (monitor != nullptr) {
        const UdevHandle<udev_device> device(udev_monitor_receive_device(monitor.get()));
        if (device == nullptr) {
            break;
        }
    }
    alignas(inotify_event) std::array<char, 4096> events;
    while (nodeChanges && read(nodeChanges.descriptor(), events.data(), events.size()) > 0) {
    }
    watchNodes();
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
    // Sorted by the node's minor number, so that the order is the same every time.
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

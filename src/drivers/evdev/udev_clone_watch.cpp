#include "drivers/evdev/udev_clone_watch.h"

#include "drivers/evdev/touchpad_rule.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string_view>

namespace glidemap {

namespace {

constexpr const char* nodeFolder = "/dev/input";
constexpr std::uint32_t openAndClose = IN_OPEN | IN_CLOSE;

} // namespace

UdevCloneWatch::UdevCloneWatch()
    : context(udev_new()), nodeChanges(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (context != nullptr) {
        monitor.reset(udev_monitor_new_from_netlink(context.get(), "udev"));
    }
    if (monitor != nullptr) {
        udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "input", nullptr);
        udev_monitor_enable_receiving(monitor.get());
    }
    seesOpening =
        nodeChanges && inotify_add_watch(nodeChanges.descriptor(), nodeFolder,
                                         IN_CREATE | IN_ATTRIB | openAndClose | IN_ONLYDIR) >= 0;
}

std::array<int, 2> UdevCloneWatch::descriptors() const {
    return {monitor != nullptr ? udev_monitor_get_fd(monitor.get()) : -1, nodeChanges.descriptor()};
}

void UdevCloneWatch::acknowledge() {
    readAnnouncements();
    readNodeChanges();
}

void UdevCloneWatch::readAnnouncements() {
    while (monitor != nullptr) {
        const UdevHandle<udev_device> device(udev_monitor_receive_device(monitor.get()));
        if (device == nullptr) {
            return;
        }
        const std::string place = udev_device_get_syspath(device.get());
        const char* action = udev_device_get_action(device.get());
        const bool isRemoved = action != nullptr && std::string_view(action) == "remove";
        if (!isRemoved && isTouchpadByRule(device.get())) {
            announced.insert(place);
        } else {
            announced.erase(place);
        }
    }
}

void UdevCloneWatch::readNodeChanges() {
    alignas(inotify_event) std::array<char, 4096> buffer;
    ssize_t size = 0;
    while (nodeChanges &&
           (size = read(nodeChanges.descriptor(), buffer.data(), buffer.size())) > 0) {
        for (std::size_t position = 0; position < static_cast<std::size_t>(size);) {
            const auto* change = reinterpret_cast<const inotify_event*>(&buffer[position]);
            note(*change);
            position += sizeof(inotify_event) + change->len;
        }
    }
}

// The kernel merges equal consecutive notifications. If two programs close a node at the same time,
// the folder's watch alone would count one close, and the node would still seem to be open. A
// second watch, on the node itself, inserts a different notification between the two. It requires
// permission to read the node, so the driver retries when the node's permissions change.
void UdevCloneWatch::separateNotifications(const std::string& name) {
    inotify_add_watch(nodeChanges.descriptor(), (std::string(nodeFolder) + "/" + name).c_str(),
                      openAndClose);
}

// A notification of a node's own watch has no name. It only separates other notifications and is
// ignored.
void UdevCloneWatch::note(const inotify_event& change) {
    if ((change.mask & IN_Q_OVERFLOW) != 0) {
        seesOpening = false;
    }
    const std::string name = change.len > 0 ? change.name : "";
    if (!name.starts_with("event")) {
        return;
    }
    int& count = opens[name];
    if ((change.mask & (IN_CREATE | IN_ATTRIB)) != 0) {
        separateNotifications(name);
    }
    if ((change.mask & IN_CREATE) != 0) {
        count = 0;
    } else if ((change.mask & IN_OPEN) != 0) {
        ++count;
    } else if ((change.mask & IN_CLOSE) != 0) {
        count = std::max(count - 1, 0);
    }
}

CloneStanding UdevCloneWatch::standing(const PadClone& clone) const {
    const std::string place = clone.place();
    CloneStanding result;
    result.hasNode = !place.empty();
    result.isAnnounced = announced.contains(place);
    if (seesOpening) {
        const auto found = opens.find(std::filesystem::path(place).filename().string());
        result.isOpen = found != opens.end() && found->second > 0;
    }
    return result;
}

} // namespace glidemap

#include "drivers/evdev/udev_watch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

namespace glidemap {

namespace {

constexpr const char* nodeFolder = "/dev/input";

} // namespace

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

// /dev/input disappears with its last node and reappears with its first, so the watch is added each
// time. If the folder is already watched, this has no effect.
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

} // namespace glidemap

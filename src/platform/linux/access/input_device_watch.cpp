#include "platform/linux/access/input_device_watch.h"

#include "core/open_file.h"
#include "drivers/evdev/udev_handles.h"
#include "platform/linux/access/udev_device.h"

#include <sys/inotify.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* nodeFolder = "/dev/input";
// Watching /dev/uinput itself requires permission to read it, so inotify watches its folder.
constexpr const char* uinputFolder = "/dev";

// A new touchpad causes several events within a few milliseconds. They are reported once.
constexpr std::chrono::milliseconds oneMoment{50};

bool nodeMatters(std::string_view name) {
    return name == "uinput" || name.starts_with("event");
}

// The mouse node of a touchpad also has the touchpad property, but the driver reads only event
// nodes.
bool matters(udev_device* device) {
    const char* const action = udev_device_get_action(device);
    if (action == nullptr || std::string_view(action) == "remove") {
        return false;
    }
    const std::string_view name = udev_device_get_sysname(device);
    return name == "uinput" || (name.starts_with("event") && isTouchpadOfRule(device));
}

// `events` contains inotify_event structures as read from inotify.
bool anyNodeMatters(std::span<const char> events) {
    bool anyMatters = false;
    while (events.size() >= sizeof(inotify_event)) {
        inotify_event event{};
        std::memcpy(&event, events.data(), sizeof event);
        const char* const name = events.data() + sizeof event;
        anyMatters = anyMatters || nodeMatters(event.len > 0 ? name : "");
        events = events.subspan(std::min(events.size(), sizeof event + event.len));
    }
    return anyMatters;
}

} // namespace

class InputDeviceWatch::OnDesktopThread {
public:
    // Enables the monitor immediately. From then on the kernel queues events, so none are lost
    // before begin().
    OnDesktopThread(DesktopThread& desktopThread, std::function<void()> changed)
        : desktop(desktopThread), notify(std::move(changed)) {
        if (context != nullptr) {
            monitor.reset(udev_monitor_new_from_netlink(context.get(), "udev"));
        }
        if (monitor != nullptr) {
            udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "input", nullptr);
            udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "misc", nullptr);
            udev_monitor_enable_receiving(monitor.get());
        }
        watchNodes();
    }

    void begin() {
        if (monitor != nullptr) {
            devices = desktop.watch(udev_monitor_get_fd(monitor.get()), [this] { readDevices(); });
        }
        if (nodeChanges) {
            nodes = desktop.watch(nodeChanges.descriptor(), [this] { readNodeChanges(); });
        }
    }

private:
    // Watches the folders of the nodes. The folder of input nodes disappears with its last node and
    // is created with its first node, so the watch is added again after each notification. Adding
    // an existing watch has no effect.
    void watchNodes() {
        inotify_add_watch(nodeChanges.descriptor(), nodeFolder, IN_ATTRIB | IN_ONLYDIR);
        inotify_add_watch(nodeChanges.descriptor(), uinputFolder, IN_ATTRIB | IN_ONLYDIR);
    }

    void readDevices() {
        bool anyMatters = false;
        while (const UdevHandle<udev_device> device{udev_monitor_receive_device(monitor.get())}) {
            anyMatters = matters(device.get()) || anyMatters;
        }
        watchNodes();
        if (anyMatters) {
            changed();
        }
    }

    void readNodeChanges() {
        bool anyMatters = false;
        alignas(inotify_event) std::array<char, 4096> events;
        for (ssize_t size = 0;
             (size = read(nodeChanges.descriptor(), events.data(), events.size())) > 0;) {
            anyMatters =
                anyNodeMatters({events.data(), static_cast<std::size_t>(size)}) || anyMatters;
        }
        watchNodes();
        if (anyMatters) {
            changed();
        }
    }

    void changed() {
        if (!due) {
            due = desktop.after(oneMoment, [this] {
                due.reset();
                notify();
            });
        }
    }

    DesktopThread& desktop;
    const std::function<void()> notify;
    UdevHandle<udev> context{udev_new()};
    UdevHandle<udev_monitor> monitor;
    OpenFile nodeChanges{inotify_init1(IN_NONBLOCK | IN_CLOEXEC)};
    DesktopThread::Watch devices;
    DesktopThread::Watch nodes;
    std::optional<DesktopThread::Watch> due;
};

InputDeviceWatch::InputDeviceWatch(DesktopThread& desktopThread,
                                   std::shared_ptr<MainQueue> mainQueue,
                                   std::function<void()> changed)
    : desktop(desktopThread),
      onChange(std::make_shared<std::function<void()>>(std::move(changed))) {
    watch = std::make_shared<OnDesktopThread>(
        desktop, [queue = std::move(mainQueue), weak = std::weak_ptr(onChange)] {
            queue->submit([weak] {
                if (const auto alive = weak.lock()) {
                    (*alive)();
                }
            });
        });
    desktop.submit([held = watch] { held->begin(); });
}

InputDeviceWatch::~InputDeviceWatch() {
    desktop.submit([held = std::exchange(watch, nullptr)]() mutable { held.reset(); });
}

} // namespace glidemap

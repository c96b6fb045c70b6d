#include "virtual_pad.h"

#include "deadline.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <libudev.h>
#include <linux/uinput.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <memory>

namespace glidemap::test {

namespace {

constexpr std::uint16_t markerKey = BTN_MIDDLE;

struct UdevDeleter {
    void operator()(udev* context) const { udev_unref(context); }
    void operator()(udev_monitor* monitor) const { udev_monitor_unref(monitor); }
    void operator()(udev_device* device) const { udev_device_unref(device); }
};
template <typename Type>
using UdevPointer = std::unique_ptr<Type, UdevDeleter>;

// Receives udev's message that it has initialised a device. The object listens from its
// construction on, so it misses no message.
class UdevNews {
public:
    UdevNews() : context(udev_new()) {
        monitor.reset(udev_monitor_new_from_netlink(context.get(), "udev"));
        udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "input", nullptr);
        udev_monitor_enable_receiving(monitor.get());
    }

    // Waits until udev has initialised the event node below the sysfs folder. Returns an empty path
    // on time-out.
    std::filesystem::path waitForNode(const std::filesystem::path& device) {
        const Deadline deadline;
        pollfd source{udev_monitor_get_fd(monitor.get()), POLLIN, 0};
        while (poll(&source, 1, deadline.milliseconds()) > 0) {
            const UdevPointer<udev_device> news(udev_monitor_receive_device(monitor.get()));
            if (news != nullptr && isEventNodeOf(*news, device)) {
                return udev_device_get_devnode(news.get());
            }
        }
        return {};
    }

private:
    static bool isEventNodeOf(udev_device& news, const std::filesystem::path& device) {
        const char* action = udev_device_get_action(&news);
        const std::filesystem::path path(udev_device_get_syspath(&news));
        return action != nullptr && std::strcmp(action, "add") == 0 &&
               path.parent_path() == device && path.filename().string().starts_with("event");
    }

    UdevPointer<udev> context;
    UdevPointer<udev_monitor> monitor;
};

bool declareAxes(int descriptor, const PadShape& shape) {
    for (const auto& [code, axis] : shape.axes) {
        uinput_abs_setup setup{};
        setup.code = static_cast<__u16>(code);
        setup.absinfo.minimum = axis.minimum;
        setup.absinfo.maximum = axis.maximum;
        setup.absinfo.fuzz = axis.fuzz;
        setup.absinfo.flat = axis.flat;
        setup.absinfo.resolution = axis.resolution;
        if (ioctl(descriptor, UI_ABS_SETUP, &setup) != 0) {
            return false;
        }
    }
    return true;
}

bool declareKeys(int descriptor, const PadShape& shape) {
    for (const int key : shape.keys) {
        if (ioctl(descriptor, UI_SET_KEYBIT, key) != 0) {
            return false;
        }
    }
    return ioctl(descriptor, UI_SET_KEYBIT, markerKey) == 0;
}

bool declareProperties(int descriptor, const PadShape& shape) {
    for (const int property : shape.properties) {
        if (ioctl(descriptor, UI_SET_PROPBIT, property) != 0) {
            return false;
        }
    }
    return true;
}

bool declareIdentity(int descriptor, const PadShape& shape, const std::string& port) {
    uinput_setup setup{};
    setup.id = {shape.bus, shape.vendor, shape.product, shape.version};
    shape.name.copy(std::begin(setup.name), sizeof setup.name - 1);
    return ioctl(descriptor, UI_SET_PHYS, port.c_str()) == 0 &&
           ioctl(descriptor, UI_DEV_SETUP, &setup) == 0;
}

bool declare(int descriptor, const PadShape& shape, const std::string& port) {
    return ioctl(descriptor, UI_SET_EVBIT, EV_KEY) == 0 &&
           ioctl(descriptor, UI_SET_EVBIT, EV_ABS) == 0 && declareKeys(descriptor, shape) &&
           declareProperties(descriptor, shape) && declareAxes(descriptor, shape) &&
           declareIdentity(descriptor, shape, port);
}

input_event kernelEvent(const PadEvent& event, std::int64_t time) {
    constexpr std::int64_t second = 1000000;
    input_event result{};
    result.input_event_sec = time / second;
    result.input_event_usec = time % second;
    result.type = event.type;
    result.code = event.code;
    result.value = event.value;
    return result;
}

} // namespace

VirtualPad::VirtualPad(PadShape shape, std::string portName)
    : _shape(std::move(shape)), port(std::move(portName)) {
    plugIn();
}

VirtualPad::~VirtualPad() {
    unplug();
}

void VirtualPad::plugIn() {
    if (isPlugged()) {
        return;
    }
    descriptor = open("/dev/uinput", O_WRONLY | O_CLOEXEC);
    if (descriptor < 0 || !create()) {
        ADD_FAILURE() << "cannot create \"" << _shape.name << "\": " << std::strerror(errno);
        unplug();
    }
}

bool VirtualPad::create() {
    UdevNews news;
    std::array<char, 64> name{};
    if (!declare(descriptor, _shape, port) || ioctl(descriptor, UI_DEV_CREATE) != 0 ||
        ioctl(descriptor, UI_GET_SYSNAME(name.size()), name.data()) < 0) {
        return false;
    }
    _node = news.waitForNode(std::filesystem::path("/sys/devices/virtual/input") / name.data());
    return !_node.empty();
}

void VirtualPad::unplug() {
    if (descriptor >= 0) {
        close(descriptor); // the kernel removes the device when its last descriptor is closed
    }
    descriptor = -1;
}

void VirtualPad::clickMarker() {
    write({{EV_KEY, markerKey, 1}});
    write({{EV_KEY, markerKey, 0}});
}

void VirtualPad::write(const EventFrame& frame, std::int64_t time) {
    std::vector<input_event> events;
    events.reserve(frame.size() + 1);
    for (const PadEvent& event : frame) {
        events.push_back(kernelEvent(event, time));
    }
    events.push_back(kernelEvent({EV_SYN, SYN_REPORT, 0}, time));
    const std::size_t size = events.size() * sizeof(input_event);
    if (::write(descriptor, events.data(), size) != static_cast<ssize_t>(size)) {
        ADD_FAILURE() << "cannot write to \"" << _shape.name << "\": " << std::strerror(errno);
    }
}

} // namespace glidemap::test

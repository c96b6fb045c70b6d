#include "drivers/evdev/uinput_clone.h"

#include "drivers/evdev/udev_handles.h"

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* uinputNode = "/dev/uinput";

// sysfs lists uinput's devices here.
constexpr const char* deviceFolder = "/sys/devices/virtual/input";

// Identifies clones: a real device's physical path names a bus and a port.
constexpr std::string_view clonePath = "glidemap/clone/";

// More events than any touchpad's frame contains.
constexpr std::size_t largeFrame = 256;

OpenFile openUinput() {
    return OpenFile(::open(uinputNode, O_WRONLY | O_NONBLOCK | O_CLOEXEC));
}

bool has(const libevdev* source, unsigned type, unsigned code) {
    return libevdev_has_event_code(source, type, code) != 0;
}

// For one event type, enables all codes that the source supports.
bool declareCodes(int file, const libevdev* source, unsigned type, unsigned long request) {
    if (libevdev_has_event_type(source, type) == 0) {
        return true;
    }
    if (ioctl(file, UI_SET_EVBIT, type) != 0) {
        return false;
    }
    for (int code = 0; code <= libevdev_event_type_get_max(type); ++code) {
        if (has(source, type, static_cast<unsigned>(code)) && ioctl(file, request, code) != 0) {
            return false;
        }
    }
    return true;
}

// Returns udev's device for the source's descriptor.
UdevHandle<udev_device> udevDeviceOf(udev* context, const libevdev* source) {
    struct stat status {};
    if (context == nullptr || fstat(libevdev_get_fd(source), &status) != 0) {
        return nullptr;
    }
    return UdevHandle<udev_device>(udev_device_new_from_devnum(context, 'c', status.st_rdev));
}

// Returns whether a clone of the device would be on the same seat: udev assigns every uinput device
// to the first seat.
bool isOnFirstSeat(udev_device* device) {
    const char* seat =
        device != nullptr ? udev_device_get_property_value(device, "ID_SEAT") : nullptr;
    return seat == nullptr || std::string_view(seat) == "seat0";
}

// Returns the fuzz of the clone's axis. The kernel filters a device's events by their fuzz and has
// already filtered the source's events. Filtering them again would drop more small movements, so
// the clone usually has no fuzz. Where libinput's udev rules are installed, libinput itself filters
// the events, and a udev property holds the original fuzz. The clone then gets that fuzz, so that
// libinput filters its events in the same way.
std::int32_t fuzzOf(udev_device* device, unsigned code) {
    std::array<char, 32> property{};
    std::snprintf(property.data(), property.size(), "LIBINPUT_FUZZ_%02x", code);
    const char* value =
        device != nullptr ? udev_device_get_property_value(device, property.data()) : nullptr;
    return value != nullptr ? static_cast<std::int32_t>(std::strtol(value, nullptr, 10)) : 0;
}

// Copies the source's axis. Adds the tool type if the source lacks it, because the clone must be
// able to report palms.
std::optional<input_absinfo> axisOf(const libevdev* source, unsigned code) {
    const input_absinfo* info = libevdev_get_abs_info(source, code);
    if (info == nullptr && code != ABS_MT_TOOL_TYPE) {
        return std::nullopt;
    }
    input_absinfo axis = info != nullptr ? *info : input_absinfo{};
    if (code == ABS_MT_TOOL_TYPE) {
        axis.maximum = std::max(axis.maximum, MT_TOOL_PALM);
    }
    return axis;
}

bool declareAxes(int file, const libevdev* source, udev_device* device) {
    if (ioctl(file, UI_SET_EVBIT, EV_ABS) != 0) {
        return false;
    }
    for (unsigned code = 0; code < ABS_CNT; ++code) {
        const std::optional<input_absinfo> axis = axisOf(source, code);
        if (!axis.has_value()) {
            continue;
        }
        uinput_abs_setup setup{};
        setup.code = static_cast<__u16>(code);
        setup.absinfo = *axis;
        setup.absinfo.value = 0; // the initial value that CloneWriter expects
        setup.absinfo.fuzz = fuzzOf(device, code);
        if (ioctl(file, UI_ABS_SETUP, &setup) != 0) {
            return false;
        }
    }
    return true;
}

bool declareProperties(int file, const libevdev* source) {
    for (unsigned property = 0; property < INPUT_PROP_CNT; ++property) {
        if (libevdev_has_property(source, property) != 0 &&
            ioctl(file, UI_SET_PROPBIT, property) != 0) {
            return false;
        }
    }
    return true;
}

bool declareIdentity(int file, const libevdev* source) {
    uinput_setup setup{};
    setup.id = {static_cast<__u16>(libevdev_get_id_bustype(source)),
                static_cast<__u16>(libevdev_get_id_vendor(source)),
                static_cast<__u16>(libevdev_get_id_product(source)),
                static_cast<__u16>(libevdev_get_id_version(source))};
    const std::string name = libevdev_get_name(source);
    name.copy(setup.name, sizeof setup.name - 1);
    const char* phys = libevdev_get_phys(source);
    const std::string path = std::string(clonePath) + (phys != nullptr ? phys : "");
    return ioctl(file, UI_SET_PHYS, path.c_str()) == 0 && ioctl(file, UI_DEV_SETUP, &setup) == 0;
}

bool declare(int file, const libevdev* source, udev_device* device) {
    return declareCodes(file, source, EV_KEY, UI_SET_KEYBIT) &&
           declareCodes(file, source, EV_REL, UI_SET_RELBIT) &&
           declareCodes(file, source, EV_MSC, UI_SET_MSCBIT) && declareAxes(file, source, device) &&
           declareProperties(file, source) && declareIdentity(file, source);
}

// Keeps the event's time, which the kernel passes on to the clone's readers. If the time is 0, the
// kernel sets it.
input_event kernelEvent(const InputEvent& event) {
    constexpr long long microseconds = 1000000;
    const long long time = std::llround(event.time * 1e6);
    input_event result{};
    result.input_event_sec = time / microseconds;
    result.input_event_usec = time % microseconds;
    result.type = event.type;
    result.code = event.code;
    result.value = event.value;
    return result;
}

} // namespace

std::unique_ptr<PadClone> UinputClone::make(const libevdev& source) {
    const UdevHandle<udev> context(udev_new());
    const UdevHandle<udev_device> device = udevDeviceOf(context.get(), &source);
    OpenFile file = openUinput();
    if (!file || !isOnFirstSeat(device.get()) ||
        !declare(file.descriptor(), &source, device.get()) ||
        ioctl(file.descriptor(), UI_DEV_CREATE) != 0) {
        return nullptr;
    }
    return std::unique_ptr<PadClone>(new UinputClone(std::move(file)));
}

bool UinputClone::isPossible() {
    return static_cast<bool>(openUinput());
}

bool UinputClone::isCloneAt(std::string_view physicalPath) {
    return physicalPath.starts_with(clonePath);
}

UinputClone::UinputClone(OpenFile created) : file(std::move(created)) {
    buffer.reserve(largeFrame);
}

UinputClone::~UinputClone() {
    destroy();
}

// The node exists as soon as the device does, unless the kernel has no free number for it.
std::string UinputClone::place() const {
    std::array<char, 64> name{};
    if (ioctl(file.descriptor(), UI_GET_SYSNAME(name.size() - 1), name.data()) < 0) {
        return {};
    }
    std::error_code error;
    const std::filesystem::path device = std::filesystem::path(deviceFolder) / name.data();
    for (std::filesystem::directory_iterator entry(device, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().filename().string().starts_with("event")) {
            return entry->path().string();
        }
    }
    return {};
}

// Writes the whole frame with one call, so that readers never see half of it.
bool UinputClone::write(std::span<const InputEvent> frame) {
    buffer.clear();
    for (const InputEvent& event : frame) {
        buffer.push_back(kernelEvent(event));
    }
    const std::size_t size = buffer.size() * sizeof(input_event);
    const ssize_t written =
        retried([&] { return ::write(file.descriptor(), buffer.data(), size); });
    return written == static_cast<ssize_t>(size);
}

void UinputClone::destroy() {
    ioctl(file.descriptor(), UI_DEV_DESTROY);
}

} // namespace glidemap

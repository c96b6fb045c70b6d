#include "platform/linux/keyboard/uinput_key_device.h"

#include "core/log.h"
#include "core/open_file.h"
#include "platform/linux/keyboard/key_codes.h"

#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace glidemap {

namespace {

constexpr const char* controlNode = "/dev/uinput";

// The physical location (PHYS), by which other programs can recognise our keyboard.
constexpr const char* place = "glidemap/keyboard";

bool declareKeys(int descriptor) {
    return ioctl(descriptor, UI_SET_EVBIT, EV_KEY) == 0 &&
           std::ranges::all_of(keyCodePairs(), [&](const KeyCodePair& pair) {
               return ioctl(descriptor, UI_SET_KEYBIT, static_cast<int>(pair.kernelCode)) == 0;
           });
}

// Uses the virtual bus, so that libinput does not treat the device as a built-in keyboard.
// Otherwise a shortcut typed by a gesture would trigger disable-while-typing on the touchpad.
bool declareIdentity(int descriptor) {
    uinput_setup setup{};
    setup.id = {BUS_VIRTUAL, 0, 0, 1};
    std::string_view(UinputKeyDevice::name).copy(std::begin(setup.name), sizeof setup.name - 1);
    return ioctl(descriptor, UI_SET_PHYS, place) == 0 &&
           ioctl(descriptor, UI_DEV_SETUP, &setup) == 0;
}

input_event eventOf(int type, int code, int value) {
    input_event event{};
    event.type = static_cast<__u16>(type);
    event.code = static_cast<__u16>(code);
    event.value = value;
    return event;
}

} // namespace

UinputKeyDevice::~UinputKeyDevice() {
    UinputKeyDevice::unplug();
}

bool UinputKeyDevice::plugIn() {
    if (descriptor >= 0) {
        return true;
    }
    const int opened = open(controlNode, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (opened < 0) {
        return false;
    }
    if (!declareKeys(opened) || !declareIdentity(opened) || ioctl(opened, UI_DEV_CREATE) != 0) {
        close(opened);
        return false;
    }
    descriptor = opened;
    logLine("actions", "created the virtual keyboard");
    return true;
}

// Closing the last descriptor makes the kernel remove the device.
void UinputKeyDevice::unplug() {
    if (descriptor >= 0) {
        close(std::exchange(descriptor, -1));
    }
}

// Uses a single write(), because the kernel does not insert other events between the events of one
// write.
bool UinputKeyDevice::write(std::span<const KeyChange> changes) {
    std::vector<input_event> events;
    events.reserve(2 * changes.size());
    for (const KeyChange& change : changes) {
        events.push_back(eventOf(EV_KEY, change.kernelCode, change.down ? 1 : 0));
        events.push_back(eventOf(EV_SYN, SYN_REPORT, 0));
    }
    const std::size_t size = events.size() * sizeof(input_event);
    const ssize_t written = retried([&] { return ::write(descriptor, events.data(), size); });
    return written == static_cast<ssize_t>(size);
}

} // namespace glidemap

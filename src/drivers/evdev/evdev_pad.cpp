#include "drivers/evdev/evdev_pad.h"

#include "drivers/evdev/pad_state.h"
#include "drivers/evdev/uinput_clone.h"

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <optional>
#include <utility>

namespace glidemap {

namespace {

// A kernel driver's slips are for its authors; the library has repaired them when it speaks of
// them.
void keepSilent(const libevdev*, libevdev_log_priority, void*, const char*, int, const char*,
                const char*, va_list) {}

std::optional<AxisRange> axis(const libevdev* device, unsigned code) {
    const input_absinfo* info = libevdev_get_abs_info(device, code);
    if (info == nullptr) {
        return std::nullopt;
    }
    return AxisRange{info->minimum, info->maximum, info->resolution};
}

double monotonicNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

void EvdevPad::Free::operator()(libevdev* freed) const {
    libevdev_free(freed);
}

std::unique_ptr<OpenPad> EvdevPad::open(const std::string& node) {
    OpenFile file(::open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    // Before the first event is read: changing the clock throws away those that wait.
    int clock = CLOCK_MONOTONIC;
    if (!file || ioctl(file.descriptor(), EVIOCSCLOCKID, &clock) != 0) {
        return nullptr;
    }
    Device device(libevdev_new());
    if (device == nullptr) {
        return nullptr;
    }
    libevdev_set_device_log_function(device.get(), keepSilent, LIBEVDEV_LOG_ERROR, nullptr);
    if (libevdev_set_fd(device.get(), file.descriptor()) != 0 ||
        libevdev_get_num_slots(device.get()) <= 0) {
        return nullptr;
    }
    return std::unique_ptr<OpenPad>(new EvdevPad(std::move(file), std::move(device)));
}

EvdevPad::EvdevPad(OpenFile opened, Device openDevice)
    : file(std::move(opened)), device(std::move(openDevice)) {
    settle();
    describe();
    recallState();
}

// The state was read piece by piece. Events that came meanwhile are part of some pieces and not of
// others, so then it is read anew, without them. A hand leaves a hundred times the time that
// this takes.
void EvdevPad::settle() {
    constexpr int mostAttempts = 10;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        if (libevdev_has_event_pending(device.get()) <= 0) {
            return;
        }
        input_event ignored{};
        libevdev_next_event(device.get(), LIBEVDEV_READ_FLAG_FORCE_SYNC, &ignored);
        while (libevdev_next_event(device.get(), LIBEVDEV_READ_FLAG_SYNC, &ignored) ==
               LIBEVDEV_READ_STATUS_SYNC) {
        }
    }
}

void EvdevPad::describe() {
    pad.name = libevdev_get_name(device.get());
    pad.slotCount = libevdev_get_num_slots(device.get());
    pad.x = axis(device.get(), ABS_MT_POSITION_X).value_or(AxisRange{});
    pad.y = axis(device.get(), ABS_MT_POSITION_Y).value_or(AxisRange{});
    pad.pressure = axis(device.get(), ABS_MT_PRESSURE);
    pad.touchMajor = axis(device.get(), ABS_MT_TOUCH_MAJOR);
    pad.touchMinor = axis(device.get(), ABS_MT_TOUCH_MINOR);
    pad.orientation = axis(device.get(), ABS_MT_ORIENTATION);
    pad.semiMultitouch = libevdev_has_property(device.get(), INPUT_PROP_SEMI_MT) != 0;
}

// The kernel tells only changes, so what the slots hold has to be known from the start, also where
// no finger is. Fingers that rest on the pad already count: a click with three fingers is one with
// three even if they came before the program.
void EvdevPad::recallState() {
    const double now = monotonicNow();
    for (int slot = 0; slot < pad.slotCount; ++slot) {
        recallSlot(slot, now);
    }
    recall(EV_ABS, ABS_MT_SLOT, libevdev_get_current_slot(device.get()), now);
    for (std::uint16_t code = 0; code < ABS_MT_SLOT; ++code) {
        if (libevdev_has_event_code(device.get(), EV_ABS, code) != 0) {
            recall(EV_ABS, code, libevdev_get_event_value(device.get(), EV_ABS, code), now);
        }
    }
    for (std::uint16_t code = 0; code < KEY_CNT; ++code) {
        if (libevdev_has_event_code(device.get(), EV_KEY, code) != 0) {
            recall(EV_KEY, code, libevdev_get_event_value(device.get(), EV_KEY, code), now);
        }
    }
    recall(EV_SYN, SYN_REPORT, 0, now);
    std::ranges::reverse(recalled);
}

void EvdevPad::recallSlot(int slot, double time) {
    recall(EV_ABS, ABS_MT_SLOT, slot, time);
    for (std::uint16_t code = PadState::firstSlotAxis; code <= PadState::lastSlotAxis; ++code) {
        if (libevdev_has_event_code(device.get(), EV_ABS, code) != 0) {
            const auto unsignedSlot = static_cast<unsigned>(slot);
            recall(EV_ABS, code, libevdev_get_slot_value(device.get(), unsignedSlot, code), time);
        }
    }
}

void EvdevPad::recall(std::uint16_t type, std::uint16_t code, std::int32_t value, double time) {
    recalled.push_back({time, type, code, value});
}

OpenPad::Read EvdevPad::next(InputEvent& event) {
    if (!recalled.empty()) {
        event = recalled.back();
        recalled.pop_back();
        return Read::event;
    }
    for (;;) {
        input_event raw{};
        const unsigned flag = resynchronising ? LIBEVDEV_READ_FLAG_SYNC : LIBEVDEV_READ_FLAG_NORMAL;
        const int status = libevdev_next_event(device.get(), flag, &raw);
        const bool lostEvents = status == LIBEVDEV_READ_STATUS_SYNC && !resynchronising;
        if (lostEvents) {
            resynchronising = true; // the library now tells the difference that they made
        } else if (status == LIBEVDEV_READ_STATUS_SUCCESS || status == LIBEVDEV_READ_STATUS_SYNC) {
            const double time = static_cast<double>(raw.input_event_sec) +
                                static_cast<double>(raw.input_event_usec) / 1e6;
            event = {time, raw.type, raw.code, raw.value};
            return Read::event;
        } else if (status == -EAGAIN && resynchronising) {
            resynchronising = false;
        } else if (status != -EINTR) {
            return status == -EAGAIN ? Read::nothing
                                     : (status == -ENODEV ? Read::gone : Read::broken);
        }
    }
}

bool EvdevPad::hasButtons() const {
    return libevdev_has_event_code(device.get(), EV_KEY, BTN_LEFT) != 0 ||
           libevdev_has_event_code(device.get(), EV_KEY, BTN_RIGHT) != 0;
}

std::optional<double> EvdevPad::grab() {
    if (ioctl(file.descriptor(), EVIOCGRAB, 1) != 0) {
        return std::nullopt;
    }
    return monotonicNow();
}

void EvdevPad::ungrab() {
    ioctl(file.descriptor(), EVIOCGRAB, 0);
}

std::unique_ptr<PadClone> EvdevPad::makeClone() {
    return UinputClone::make(*device);
}

} // namespace glidemap

#include "drivers/evdev/evdev_pad.h"

#include "drivers/evdev/pad_state.h"
#include "drivers/evdev/uinput_clone.h"

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <limits>
#include <optional>
#include <utility>

namespace glidemap {

namespace {

// Discards libevdev's messages. They report faults of kernel drivers, and libevdev has already
// corrected the events.
void ignoreLog(const libevdev*, libevdev_log_priority, void*, const char*, int, const char*,
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

// Opens the node and makes it use the monotonic clock for its events. Returns an invalid file if
// either step fails.
OpenFile openNode(const std::string& node, int access) {
    OpenFile file(::open(node.c_str(), access | O_NONBLOCK | O_CLOEXEC));
    // Set the clock before reading the first event, because setting the clock discards queued
    // events.
    int clock = CLOCK_MONOTONIC;
    if (file && ioctl(file.descriptor(), EVIOCSCLOCKID, &clock) != 0) {
        return {};
    }
    return file;
}

input_event kernelEvent(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    input_event event{};
    event.type = type;
    event.code = code;
    event.value = value;
    return event;
}

double timeOf(const input_event& event) {
    return static_cast<double>(event.input_event_sec) +
           static_cast<double>(event.input_event_usec) / 1e6;
}

} // namespace

void EvdevPad::Free::operator()(libevdev* freed) const {
    libevdev_free(freed);
}

std::unique_ptr<OpenPad> EvdevPad::open(const std::string& node) {
    OpenFile file = openNode(node, O_RDONLY);
    if (!file) {
        return nullptr;
    }
    Device device(libevdev_new());
    if (device == nullptr) {
        return nullptr;
    }
    libevdev_set_device_log_function(device.get(), ignoreLog, LIBEVDEV_LOG_ERROR, nullptr);
    if (libevdev_set_fd(device.get(), file.descriptor()) != 0 ||
        libevdev_get_num_slots(device.get()) <= 0) {
        return nullptr;
    }
    return std::unique_ptr<OpenPad>(new EvdevPad(node, std::move(file), std::move(device)));
}

EvdevPad::EvdevPad(std::string node, OpenFile file, Device device)
    : node(std::move(node)), file(std::move(file)), device(std::move(device)) {
    readConsistentState();
    describe();
    queueInitialState();
}

// libevdev reads the state with several calls. If an event arrives between two of them, the results
// are inconsistent, and the state is read again. Reading takes a hundredth of the time between two
// reports of a touchpad, so a retry usually succeeds.
void EvdevPad::readConsistentState() {
    constexpr int maxAttempts = 10;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
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

// The kernel reports only changes, so the driver must know the initial values of all slots, even of
// empty slots. Fingers that already rest on the pad count: a click with three fingers has three
// fingers even if they landed before the program started.
void EvdevPad::queueInitialState() {
    const double now = monotonicNow();
    for (int slot = 0; slot < pad.slotCount; ++slot) {
        queueInitialSlot(slot, now);
    }
    queueInitialEvent(EV_ABS, ABS_MT_SLOT, libevdev_get_current_slot(device.get()), now);
    for (std::uint16_t code = 0; code < ABS_MT_SLOT; ++code) {
        if (libevdev_has_event_code(device.get(), EV_ABS, code) != 0) {
            queueInitialEvent(EV_ABS, code, libevdev_get_event_value(device.get(), EV_ABS, code),
                              now);
        }
    }
    for (std::uint16_t code = 0; code < KEY_CNT; ++code) {
        if (libevdev_has_event_code(device.get(), EV_KEY, code) != 0) {
            queueInitialEvent(EV_KEY, code, libevdev_get_event_value(device.get(), EV_KEY, code),
                              now);
        }
    }
    queueInitialEvent(EV_SYN, SYN_REPORT, 0, now);
    std::ranges::reverse(initialEvents);
}

void EvdevPad::queueInitialSlot(int slot, double time) {
    queueInitialEvent(EV_ABS, ABS_MT_SLOT, slot, time);
    for (std::uint16_t code = PadState::firstSlotAxis; code <= PadState::lastSlotAxis; ++code) {
        if (libevdev_has_event_code(device.get(), EV_ABS, code) != 0) {
            const auto unsignedSlot = static_cast<unsigned>(slot);
            queueInitialEvent(EV_ABS, code,
                              libevdev_get_slot_value(device.get(), unsignedSlot, code), time);
        }
    }
}

void EvdevPad::queueInitialEvent(std::uint16_t type, std::uint16_t code, std::int32_t value,
                                 double time) {
    initialEvents.push_back({time, type, code, value});
}

OpenPad::Read EvdevPad::next(InputEvent& event) {
    if (!initialEvents.empty()) {
        event = initialEvents.back();
        initialEvents.pop_back();
        return Read::event;
    }
    for (;;) {
        input_event raw{};
        const unsigned flag = resynchronising ? LIBEVDEV_READ_FLAG_SYNC : LIBEVDEV_READ_FLAG_NORMAL;
        const int status = libevdev_next_event(device.get(), flag, &raw);
        const bool lostEvents = status == LIBEVDEV_READ_STATUS_SYNC && !resynchronising;
        if (lostEvents) {
            resynchronising = true; // libevdev now returns the lost changes
        } else if (status == LIBEVDEV_READ_STATUS_SUCCESS || status == LIBEVDEV_READ_STATUS_SYNC) {
            event = {timeOf(raw), raw.type, raw.code, raw.value};
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

// Timestamps cannot distinguish an event just before the grab from one just after it. Therefore a
// second descriptor of the node, the witness, receives the same events as other programs. Its last
// event is the last one that they received.
std::optional<double> EvdevPad::grab() {
    openWitness();
    readWitness(); // discards the events from before the grab
    const double before = monotonicNow();
    if (!switchGrab(true)) {
        return std::nullopt;
    }
    const auto witnessed = readWitness();
    saveStateSeenByOthers();
    if (!witness) {
        return monotonicNow();
    }
    return witnessed.has_value()
               ? std::nextafter(witnessed->last, std::numeric_limits<double>::max())
               : before;
}

// A busy system may suspend this thread after every system call, for as long as a short touch.
// Therefore, if a touch has begun, only one other call separates the grab from its release.
GrabResult EvdevPad::grabBetweenTouches() {
    openWitness();
    readWitness(); // discards the events from before the grab
    if (libevdev_has_event_pending(device.get()) > 0) {
        return {GrabResult::Outcome::interrupted};
    }
    saveStateSeenByOthers();
    const double before = monotonicNow();
    if (!switchGrab(true)) {
        return {};
    }
    if (!witness) {
        return {GrabResult::Outcome::grabbed, monotonicNow()};
    }
    if (witnessIsReady()) {
        switchGrab(false);
        return {GrabResult::Outcome::interrupted};
    }
    return {GrabResult::Outcome::grabbed, before};
}

void EvdevPad::openWitness() {
    if (!witness) {
        witness = openNode(node, O_RDWR);
    }
    if (!witness) {
        witness = openNode(node, O_RDONLY);
    }
}

bool EvdevPad::witnessIsReady() const {
    pollfd ready{witness.descriptor(), POLLIN, 0};
    return poll(&ready, 1, 0) > 0;
}

// Drains the witness. Returns nullopt if it has received no event.
std::optional<EvdevPad::WitnessedTimes> EvdevPad::readWitness() {
    std::optional<WitnessedTimes> times;
    std::array<input_event, 64> events{};
    ssize_t size = 0;
    while (witness && (size = ::read(witness.descriptor(), events.data(), sizeof events)) > 0) {
        const std::size_t count = static_cast<std::size_t>(size) / sizeof(input_event);
        times = {times.has_value() ? times->first : timeOf(events[0]), timeOf(events[count - 1])};
    }
    othersReceivedEvents = othersReceivedEvents || times.has_value();
    return times;
}

bool EvdevPad::switchGrab(bool on) const {
    return ioctl(file.descriptor(), EVIOCGRAB, on ? 1 : 0) == 0;
}

// Returns whether the kernel knows of a finger or a pressed key. Asks for the keys through the
// witness, because the kernel discards the unread key events of the descriptor that asks.
bool EvdevPad::isTouched() const {
    std::array<unsigned char, KEY_CNT / 8> keys{};
    const bool hasKeys =
        witness && ioctl(witness.descriptor(), EVIOCGKEY(sizeof keys), keys.data()) > 0;
    const auto isSet = [](unsigned char bits) {
        return bits != 0;
    };
    return (hasKeys && std::ranges::any_of(keys, isSet)) ||
           std::ranges::any_of(slotValues(ABS_MT_TRACKING_ID),
                               [](std::int32_t touch) { return touch >= 0; });
}

// Returns the kernel's current value of the axis for each slot. Returns an empty vector if the
// touchpad does not have the axis.
std::vector<std::int32_t> EvdevPad::slotValues(std::uint16_t code) const {
    std::vector<std::int32_t> answer(static_cast<std::size_t>(pad.slotCount) + 1);
    answer[0] = code;
    const std::size_t size = answer.size() * sizeof answer[0];
    if (libevdev_has_event_code(device.get(), EV_ABS, code) == 0 ||
        ioctl(file.descriptor(), EVIOCGMTSLOTS(size), answer.data()) < 0) {
        return {};
    }
    answer.erase(answer.begin());
    return answer;
}

// The saved state stays valid as long as other programs receive no event.
void EvdevPad::saveStateSeenByOthers() {
    if (witness && !std::exchange(othersReceivedEvents, false)) {
        return;
    }
    axesSeenByOthers.clear();
    input_absinfo slot{};
    if (ioctl(file.descriptor(), EVIOCGABS(ABS_MT_SLOT), &slot) != 0) {
        return;
    }
    slotSeenByOthers = slot.value;
    for (std::uint16_t code = PadState::firstSlotAxis; code <= PadState::lastSlotAxis; ++code) {
        auto values = slotValues(code);
        if (code != ABS_MT_TRACKING_ID && !values.empty()) {
            axesSeenByOthers.push_back({code, std::move(values)});
        }
    }
}

// Writes the saved values to the device. The touchpad is still grabbed, so no other program
// receives these events. Slots with a finger are skipped, because the next report of that finger
// updates the other programs. The kernel makes a slot the current one only when a value in it
// changes. Therefore two different positions are written to the slot that was current.
void EvdevPad::restoreStateSeenByOthers() const {
    const std::vector<std::int32_t> touches = slotValues(ABS_MT_TRACKING_ID);
    const auto isFree = [&](std::int32_t slot) {
        return slot >= 0 && slot < pad.slotCount && touches[static_cast<std::size_t>(slot)] < 0;
    };
    if (touches.empty() || !witness) {
        return;
    }
    std::vector<input_event> events;
    const auto addSlotEvent = [&](std::int32_t slot) {
        events.push_back(kernelEvent(EV_ABS, ABS_MT_SLOT, slot));
        for (const SlotAxis& axis : axesSeenByOthers) {
            const std::int32_t value = axis.values[static_cast<std::size_t>(slot)];
            events.push_back(kernelEvent(EV_ABS, axis.code, value));
        }
    };
    for (std::int32_t slot = 0; slot < pad.slotCount; ++slot) {
        if (isFree(slot)) {
            addSlotEvent(slot);
        }
    }
    if (isFree(slotSeenByOthers)) {
        events.push_back(kernelEvent(EV_ABS, ABS_MT_SLOT, slotSeenByOthers));
        events.push_back(kernelEvent(EV_ABS, ABS_MT_POSITION_X, pad.x.minimum));
        events.push_back(kernelEvent(EV_ABS, ABS_MT_POSITION_X, pad.x.maximum));
        addSlotEvent(slotSeenByOthers);
    }
    events.push_back(kernelEvent(EV_SYN, SYN_REPORT, 0));
    [[maybe_unused]] const auto written =
        ::write(witness.descriptor(), events.data(), events.size() * sizeof events[0]);
}

double EvdevPad::ungrab() {
    restoreStateSeenByOthers();
    return release();
}

// Restoring the state takes many system calls, and a touch may begin meanwhile. So this function
// checks for a touch before and afterwards, and keeps the grab if there is one.
std::optional<double> EvdevPad::ungrabBetweenTouches() {
    if (libevdev_has_event_pending(device.get()) > 0 || isTouched()) {
        return std::nullopt;
    }
    restoreStateSeenByOthers();
    return isTouched() ? std::nullopt : std::optional(release());
}

// Returns the time at which the grab ended. That moment is before the system call returns, and not
// after the first event that the witness receives: from then on, it and other programs receive
// events again.
double EvdevPad::release() {
    readWitness(); // an event from before the grab may have arrived late
    const double before = monotonicNow();
    switchGrab(false);
    if (!witness) {
        return before;
    }
    const double after = monotonicNow();
    const auto witnessed = readWitness();
    return witnessed.has_value() ? std::min(witnessed->first, after) : after;
}

std::unique_ptr<PadClone> EvdevPad::makeClone() {
    return UinputClone::make(*device);
}

} // namespace glidemap

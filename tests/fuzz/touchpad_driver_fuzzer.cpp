// Runs the touchpad driver on a simulated kernel, with random actions of fingers, the kernel and
// callbacks.
//
// The input is a list of actions. Fingers land, move and lift, and buttons are pressed and
// released. As in the kernel, a frame contains only changes since the previous frame, even after an
// overflow. The clone's device may fail, the user may not be allowed to create a clone, and another
// program may grab the touchpad. The touchpad may be unplugged and plugged in again, and the user
// may lose and regain access to it. A callback may block until the watchdog acts, or call the
// driver. Occasionally an event has arbitrary content; from then on, only the first and the last of
// these rules must hold. The rules must hold whenever the driver has read all events:
//
//   - while the touchpad is grabbed, a clone exists;
//   - the clone has the touchpad's fingers at the same positions, and holds no button that is
//     released on the touchpad;
//   - while the touchpad is not grabbed, its clone holds no finger and no button;
//   - if no finger is down, the last report has no touching contact;
//   - if the filter is off and no finger is down, the touchpad is not grabbed;
//   - in the end, no touchpad is grabbed and no clone exists.
#include "drivers/evdev/touchpad_driver.h"
#include "fake_clone.h"
#include "fake_pads.h"
#include "fake_time.h"
#include "fuzz_input.h"
#include "input/mt_touch.h"
#include "require.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using namespace glidemap;
using fuzz::Input;
using fuzz::require;
using namespace glidemap::test;

constexpr std::int32_t slotCount = 5; // as in FakeOpenPad

struct Slot {
    std::int32_t id = -1;
    std::int32_t x = 0;
    std::int32_t y = 0;
};

// The state of an input device.
struct DeviceState {
    std::array<Slot, slotCount> slots;
    std::int32_t slot = 0;
    std::map<std::uint16_t, bool> keys;

    bool isNeutral() const {
        return fingers() == 0 &&
               std::ranges::none_of(keys, [](const auto& key) { return key.second; });
    }
    std::int32_t fingers() const {
        return static_cast<std::int32_t>(
            std::ranges::count_if(slots, [](const Slot& one) { return one.id >= 0; }));
    }

    void apply(std::uint16_t type, std::uint16_t code, std::int32_t value) {
        if (type == EV_KEY) {
            keys[code] = value != 0;
        } else if (type == EV_ABS && code == ABS_MT_SLOT) {
            require(value >= 0 && value < slotCount, "frames use only slots that the clone has");
            slot = value;
        } else if (type == EV_ABS && code == ABS_MT_TRACKING_ID) {
            current().id = value;
        } else if (type == EV_ABS && code == ABS_MT_POSITION_X) {
            current().x = value;
        } else if (type == EV_ABS && code == ABS_MT_POSITION_Y) {
            current().y = value;
        }
    }

private:
    Slot& current() { return slots[static_cast<std::size_t>(slot)]; }
};

// The clone's state, computed from the events written to it.
struct CloneState {
    bool exists = false;
    DeviceState state;
};

CloneState cloneIn(const std::vector<std::string>& journal) {
    CloneState clone;
    for (const std::string& entry : journal) {
        if (entry == "clone" || entry == "destroy") {
            clone = {entry == "clone", {}};
            continue;
        }
        unsigned type = 0;
        unsigned code = 0;
        std::int32_t value = 0;
        int length = 0;
        for (const char* at = entry.c_str();
             std::sscanf(at, " %u:%u=%d%n", &type, &code, &value, &length) == 3; at += length) {
            clone.state.apply(static_cast<std::uint16_t>(type), static_cast<std::uint16_t>(code),
                              value);
        }
    }
    return clone;
}

// Simulates the touchpad in the kernel.
class Kernel {
public:
    DeviceState now;      // the actual state of fingers and buttons
    bool isHonest = true; // no arbitrary event has been sent

    void touch(std::size_t slot, std::int32_t x, std::int32_t y) {
        const std::lock_guard lock(mutex);
        Slot& one = now.slots[slot % slotCount];
        one = {one.id >= 0 ? one.id : nextId++, x, y};
        updateTools();
    }
    void lift(std::size_t slot) {
        const std::lock_guard lock(mutex);
        now.slots[slot % slotCount].id = -1;
        updateTools();
    }
    void press(std::uint16_t button, bool down) {
        const std::lock_guard lock(mutex);
        now.keys[button] = down;
    }

    void release() {
        const std::lock_guard lock(mutex);
        for (Slot& slot : now.slots) {
            slot.id = -1;
        }
        now.keys[BTN_LEFT] = false;
        now.keys[BTN_RIGHT] = false;
        updateTools();
    }

    // Plugs in another touchpad, without fingers on it.
    void replace(FakePads& pads) {
        const std::lock_guard lock(mutex);
        now = {};
        reported = {};
        pads.plug("/dev/input/event0", "Pad");
        stream = pads.stream("/dev/input/event0");
        if (!isRead) {
            stream->restart({});
        }
    }

    std::shared_ptr<FakeStream> touchpad() {
        const std::lock_guard lock(mutex);
        return stream;
    }

    // Sends all changes together, so that the driver reads them in one go. With `endsFirst`, the
    // ends of replaced touches are sent in a separate frame before the other changes.
    void writeChanges(double time, bool endsFirst) {
        const std::lock_guard lock(mutex);
        if (isRead) {
            stream->send(difference(time, endsFirst));
        }
    }

    // Queues the initial events of a newly opened touchpad.
    void recall() {
        const std::lock_guard lock(mutex);
        reported = {};
        isRead = true;
        stream->restart(difference(0, false));
    }

    // Sends additional events, which do not change the simulated state.
    void send(const std::vector<InputEvent>& events) {
        const std::lock_guard lock(mutex);
        if (isRead) {
            stream->send(events);
        }
    }

    // Discards pending events, because the driver has closed the touchpad.
    void close() {
        const std::lock_guard lock(mutex);
        isRead = false;
        stream->restart({});
    }

private:
    std::vector<InputEvent> difference(double time, bool endsFirst) {
        std::vector<InputEvent> events;
        if (endsFirst) {
            writeEnds(events, time);
        }
        writeSlots(events, time);
        for (const auto& [key, down] : now.keys) {
            if (std::exchange(reported.keys[key], down) != down) {
                events.push_back({time, EV_KEY, key, down ? 1 : 0});
            }
        }
        events.push_back({time, EV_SYN, SYN_REPORT, 0});
        return events;
    }

    void updateTools() {
        constexpr std::array<std::uint16_t, 5> tools = {BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP,
                                                        BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP,
                                                        BTN_TOOL_QUINTTAP};
        const std::int32_t fingers = now.fingers();
        now.keys[BTN_TOUCH] = fingers > 0;
        for (std::size_t count = 1; count <= tools.size(); ++count) {
            now.keys[tools[count - 1]] = fingers == static_cast<std::int32_t>(count);
        }
    }

    void select(std::vector<InputEvent>& events, double time, std::size_t slot) {
        const auto number = static_cast<std::int32_t>(slot);
        if (std::exchange(reported.slot, number) != number) {
            events.push_back({time, EV_ABS, ABS_MT_SLOT, number});
        }
    }

    void writeEnds(std::vector<InputEvent>& events, double time) {
        for (std::size_t slot = 0; slot < now.slots.size(); ++slot) {
            Slot& old = reported.slots[slot];
            if (old.id >= 0 && now.slots[slot].id >= 0 && old.id != now.slots[slot].id) {
                select(events, time, slot);
                events.push_back({time, EV_ABS, ABS_MT_TRACKING_ID, -1});
                old.id = -1;
            }
        }
        if (!events.empty()) {
            events.push_back({time, EV_SYN, SYN_REPORT, 0});
        }
    }

    void writeSlots(std::vector<InputEvent>& events, double time) {
        for (std::size_t slot = 0; slot < now.slots.size(); ++slot) {
            const Slot& fresh = now.slots[slot];
            Slot& old = reported.slots[slot];
            writeAxis(events, time, slot, ABS_MT_TRACKING_ID, old.id, fresh.id);
            writeAxis(events, time, slot, ABS_MT_POSITION_X, old.x, fresh.x);
            writeAxis(events, time, slot, ABS_MT_POSITION_Y, old.y, fresh.y);
        }
    }

    void writeAxis(std::vector<InputEvent>& events, double time, std::size_t slot,
                   std::uint16_t code, std::int32_t& old, std::int32_t fresh) {
        if (old != fresh) {
            select(events, time, slot);
            events.push_back({time, EV_ABS, code, fresh});
            old = fresh;
        }
    }

    std::shared_ptr<FakeStream> stream;
    std::mutex mutex;     // the reader thread may open the touchpad at any time
    DeviceState reported; // the state that the driver has received
    std::int32_t nextId = 1;
    bool isRead = true; // the driver reads this touchpad, or will read it when it finds it
};

class Directory : public FakeDirectory {
public:
    Directory(std::shared_ptr<FakePads> itsPads, Kernel& itsKernel)
        : FakeDirectory(std::move(itsPads)), kernel(itsKernel) {}

    std::unique_ptr<OpenPad> open(const PadCandidate& candidate) override {
        auto opened = FakeDirectory::open(candidate);
        if (opened != nullptr) {
            kernel.recall();
        }
        return opened;
    }

private:
    Kernel& kernel;
};

class Machine {
public:
    explicit Machine(std::span<const std::uint8_t> bytes) : input(bytes) {
        running = this;
        plug();
        driver = std::make_unique<TouchpadDriver>(std::make_unique<Directory>(pads, kernel), time);
        device = driver->createList().front();
        driver->addCallback(device, &report);
        driver->setClickFilter(&filter, nullptr);
        driver->start(device);
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;
    ~Machine() { running = nullptr; }

    void run() {
        while (!input.isOver()) {
            act(input.byte() % 16);
        }
        end();
    }

private:
    enum class InCallback { nothing, stall, stallAndStayOff, restart, stop, list, toggle };

    void act(int verb) {
        switch (verb) {
        case 0:
        case 1:
        case 2:
            return kernel.touch(input.byte(), input.byte() % 101, input.byte() % 101);
        case 3:
        case 4:
            return kernel.lift(input.byte());
        case 5:
        case 6:
            return press(input.byte());
        case 7:
        case 8:
            return writeChanges(false);
        case 9:
            return writeChanges(true);
        case 10:
            writeChanges(true);
            settle();
            return check();
        case 11:
            return driver->switchClickFilter(input.byte() % 4 != 0);
        case 12:
            return changeSystem(input.byte());
        case 13:
            inCallback = static_cast<InCallback>(input.byte() % 7);
            return;
        case 14:
            return replug(input.byte());
        default:
            return makeUp();
        }
    }

    void press(std::uint8_t choice) {
        kernel.press((choice & 1) != 0 ? BTN_RIGHT : BTN_LEFT, (choice & 2) != 0);
    }

    void writeChanges(bool endsFirst) {
        clock += 0.01;
        kernel.writeChanges(clock, endsFirst);
    }

    void changeSystem(std::uint8_t choice) {
        const auto touchpad = stream();
        FakeSystem& system = *touchpad->system();
        switch (choice % 4) {
        case 0:
            return system.breakClone();
        case 1:
            return system.allowClones((choice & 4) != 0);
        case 2:
            return system.setGrabbedByOthers((choice & 4) != 0);
        default:
            // Sets the time of the next grab or ungrab. Frames that were sent earlier may still be
            // pending.
            return system.setTime(clock + choice / 1000.0);
        }
    }

    void plug() {
        kernel.replace(*pads);
        streams.push_back(kernel.touchpad());
        streams.back()->system()->setTime(clock);
    }

    // Removes the user's access and grants it again. Whether the driver closes the touchpad in
    // between depends on the timing of the threads.
    void withdrawAccess() {
        pads->makeReadable("/dev/input/event0", false);
        driver->createList();
        driver->name(device); // blocks until the reader releases its lock
        pads->makeReadable("/dev/input/event0");
        driver->createList();
    }

    void replug(std::uint8_t choice) {
        constexpr std::uint8_t onlyWithdraws = 0x40;
        if (choice % 2 == 0) {
            settle();
        }
        if ((choice & onlyWithdraws) != 0) {
            return withdrawAccess();
        }
        pads->unplug("/dev/input/event0");
        plug();
    }

    void makeUp() {
        kernel.isHonest = false;
        const auto type = static_cast<std::uint16_t>(input.byte() % 5);
        const auto code = input.value<std::uint16_t>();
        kernel.send(
            {{clock, type, code, input.value<std::int32_t>()}, {clock, EV_SYN, SYN_REPORT, 0}});
    }

    std::shared_ptr<FakeStream> stream() { return kernel.touchpad(); }

    // Waits until the reader thread has finished all its work.
    void settle() {
        if (!isStarted) {
            driver->start(device);
            isStarted = true;
        }
        drain();
        time.advance(CloneIntroduction::readerGracePeriod); // lets a new clone become ready
        drain();
        if (!isStarted) {
            settle(); // restarts the touchpad that a callback has stopped
        }
    }

    void drain() {
        kernel.send({{clock, EV_SYN, SYN_REPORT, 0}});
        require(stream()->waitUntilDrained(), "the driver reads the touchpad");
        driver->name(device); // blocks until the reader releases its lock
    }

    void check() {
        const auto touchpad = stream();
        const FakeSystem& system = *touchpad->system();
        const CloneState clone = cloneIn(system.journal());
        require(!system.isGrabbed() || clone.exists, "a grabbed touchpad has a clone");
        if (!kernel.isHonest) {
            return;
        }
        if (clone.exists && !system.isGrabbed()) {
            require(clone.state.isNeutral(), "a silent clone holds no finger and no button");
        }
        if (system.isGrabbed()) {
            checkForwarded(clone.state);
        }
        require(kernel.now.fingers() > 0 || touching == 0,
                "without fingers no contact is reported");
    }

    void checkForwarded(const DeviceState& clone) const {
        for (std::size_t slot = 0; slot < clone.slots.size(); ++slot) {
            const Slot& source = kernel.now.slots[slot];
            const Slot& copy = clone.slots[slot];
            require((source.id >= 0) == (copy.id >= 0), "the clone has the touchpad's fingers");
            require(source.id < 0 || (source.x == copy.x && source.y == copy.y),
                    "the clone's finger is at the touchpad's position");
        }
        for (const auto& [key, down] : clone.keys) {
            const auto source = kernel.now.keys.find(key);
            require(!down || (source != kernel.now.keys.end() && source->second),
                    "the clone holds no key that is up on the touchpad");
        }
    }

    void end() {
        inCallback = InCallback::nothing;
        kernel.release();
        writeChanges(true);
        driver->switchClickFilter(false);
        settle();
        settle(); // processes the changes that the first call caused
        if (kernel.isHonest) {
            require(!stream()->system()->isGrabbed(),
                    "an untouched touchpad is given back when the filter is off");
            require(touching == 0, "without fingers no contact is reported");
        }
        driver->stop(device);
        driver.reset();
        for (const auto& each : streams) {
            require(!each->system()->isGrabbed(), "in the end no touchpad is grabbed");
            require(!cloneIn(each->system()->journal()).exists, "in the end no clone exists");
        }
    }

    // The driver calls this on the reader's thread.
    static std::int32_t report(driver::Device /*device*/, const MTTouch* records,
                               std::int32_t count, double /*timestamp*/, std::int32_t /*frame*/) {
        std::int32_t touching = 0;
        for (std::int32_t index = 0; index < count; ++index) {
            touching += isTouchingState(records[index].state) ? 1 : 0;
        }
        running->touching = touching;
        running->interrupt();
        return 0;
    }

    static bool filter(void* /*context*/, driver::Device /*device*/, std::int32_t event,
                       std::int32_t button) {
        if (event == driver::clickFilterDisabledByTimeout) {
            if (running->staysOn) {
                running->driver->switchClickFilter(true);
            }
            return false;
        }
        running->interrupt();
        return button == 0;
    }

    void interrupt() {
        const auto action = inCallback.exchange(InCallback::nothing);
        switch (action) {
        case InCallback::stall:
        case InCallback::stallAndStayOff:
            staysOn = action == InCallback::stall;
            return stall();
        case InCallback::restart:
            stop();
            return driver->start(device);
        case InCallback::stop:
            isStarted = false;
            stop();
            return kernel.close();
        case InCallback::list:
            driver->createList();
            return;
        case InCallback::toggle:
            driver->switchClickFilter(false);
            return driver->switchClickFilter(true);
        case InCallback::nothing:
            break;
        }
    }

    // After stop(), the driver sends no report, not even an empty one, so the count is reset here.
    void stop() {
        driver->stop(device);
        touching = 0;
    }

    // Blocks until the watchdog has released the touchpad.
    void stall() {
        const auto system = stream()->system();
        while (system->isGrabbed()) {
            // Advance the time repeatedly, because the watchdog may not be waiting yet.
            time.advance(ForwardingWatchdog::patience);
            std::this_thread::yield();
        }
    }

    static Machine* running;

    Input input;
    FakeTime time;
    Kernel kernel;
    std::shared_ptr<FakePads> pads = std::make_shared<FakePads>();
    std::vector<std::shared_ptr<FakeStream>> streams;
    std::unique_ptr<TouchpadDriver> driver;
    driver::Device device = nullptr;
    double clock = 1;
    std::atomic<bool> isStarted = true;
    std::atomic<bool> staysOn = true;
    std::atomic<std::int32_t> touching = 0;
    std::atomic<InCallback> inCallback = InCallback::nothing;
};

Machine* Machine::running = nullptr;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t maxActions = 400;
    Machine(std::span(data, std::min(size, maxActions))).run();
    return 0;
}

// A fake of the system for one touchpad: the grab, the clone, and the user's permission to create a
// clone.
//
// Thread:  any; the test's, the reader's and the watchdog's threads use it.
#pragma once

#include "drivers/evdev/pad_directory.h"

#include <linux/input.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {

// Formats each event as its type, code and value, such as "3:57=4". Separates the events with
// spaces, and omits EV_SYN events.
inline std::string textOf(std::span<const InputEvent> frame) {
    std::string text;
    for (const InputEvent& event : frame) {
        if (event.type != EV_SYN) {
            text += (text.empty() ? "" : " ") + std::to_string(event.type) + ":" +
                    std::to_string(event.code) + "=" + std::to_string(event.value);
        }
    }
    return text;
}

class FakeSystem {
public:
    static constexpr std::chrono::seconds limit{120};

    // Sets whether the user may create clones.
    void allowClones(bool allowed) {
        set([&] { clonesAllowed = allowed; });
    }
    void setGrabbedByOthers(bool theyDo) {
        set([&] { grabbedByOthers = theyDo; });
    }
    void breakClone() {
        set([&] { cloneBroken = true; });
    }
    // Sets the state of the clone that the driver detects: whether it has a node, whether udev has
    // announced it, and whether a program has it open. By default, all three are true.
    void setStanding(const CloneStanding& newStanding) {
        set([&] { standing = newStanding; });
    }
    void setTime(double time) {
        set([&] { now = time; });
    }

    // The driver calls the functions from here to destroyClone().
    std::optional<double> grab() {
        const std::lock_guard lock(mutex);
        if (grabbedByOthers) {
            return std::nullopt;
        }
        note("grab");
        grabbed = true;
        return now;
    }
    double ungrab() {
        const std::lock_guard lock(mutex);
        if (std::exchange(grabbed, false)) {
            note("ungrab");
        }
        return now;
    }
    CloneStanding cloneStanding() const {
        const std::lock_guard lock(mutex);
        return standing;
    }
    bool makeClone() {
        const std::lock_guard lock(mutex);
        if (clonesAllowed) {
            note("clone");
            cloneAlive = true;
            cloneBroken = false;
        }
        return clonesAllowed;
    }
    bool write(std::span<const InputEvent> frame) {
        const std::lock_guard lock(mutex);
        if (!cloneAlive || cloneBroken) {
            return false;
        }
        note(textOf(frame));
        lastTime = frame.back().time;
        return frame.back().type == EV_SYN && frame.back().code == SYN_REPORT;
    }
    void destroyClone() {
        const std::lock_guard lock(mutex);
        if (std::exchange(cloneAlive, false)) {
            note("destroy");
        }
    }

    // Returns all calls that had an effect, in order: "clone", "grab", the frames, "ungrab",
    // "destroy".
    std::vector<std::string> journal() const {
        const std::lock_guard lock(mutex);
        return entries;
    }
    // Waits for at least `count` entries and returns all entries.
    std::vector<std::string> wait(std::size_t count) const {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, limit, [&] { return entries.size() >= count; });
        return entries;
    }
    bool waitUntilGrabbed(bool expected, std::chrono::milliseconds patience = limit) const {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, patience, [&] { return grabbed == expected; });
    }
    bool isGrabbed() const {
        const std::lock_guard lock(mutex);
        return grabbed;
    }
    double timeOfLastFrame() const {
        const std::lock_guard lock(mutex);
        return lastTime;
    }

private:
    template <typename Function>
    void set(Function function) {
        const std::lock_guard lock(mutex);
        function();
    }
    void note(std::string entry) {
        entries.push_back(std::move(entry));
        changed.notify_all();
    }

    mutable std::mutex mutex;
    mutable std::condition_variable changed;
    bool clonesAllowed = true;
    bool grabbedByOthers = false;
    bool cloneBroken = false;
    CloneStanding standing{true, true, true};
    bool cloneAlive = false;
    bool grabbed = false;
    double now = 0;
    double lastTime = 0;
    std::vector<std::string> entries;
};

class FakeClone : public PadClone {
public:
    explicit FakeClone(std::shared_ptr<FakeSystem> system) : system(std::move(system)) {}
    ~FakeClone() override { system->destroyClone(); }

    std::string place() const override { return "clone"; }
    CloneStanding standing() const { return system->cloneStanding(); }
    bool write(std::span<const InputEvent> frame) override { return system->write(frame); }
    void destroy() override { system->destroyClone(); }

private:
    std::shared_ptr<FakeSystem> system;
};

// Reports the clone's state, which the test sets with FakeSystem::setStanding().
class FakeCloneWatch : public CloneWatch {
public:
    std::array<int, 2> descriptors() const override { return {-1, -1}; }
    void acknowledge() override {}
    CloneStanding standing(const PadClone& clone) const override {
        return static_cast<const FakeClone&>(clone).standing();
    }
};

} // namespace glidemap::test

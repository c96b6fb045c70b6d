// Gives the touchpads back to the system when the loop that forwards them gets stuck, in a callback
// for instance. Without it the user would have no touchpad then.
//
//   reader     poll ─▶ work() … progress() … rest() ─▶ poll        work() ………………… stuck ………………▶
//   watchdog   asleep, until there is work with a touchpad held    └─ patience ─▶ gives back ─▶ onStall
//
// A touchpad that was given back is not held any more: the reader finds that out by asking before
// it writes. Sleeps without a time-out while no held touchpad is touched.
//
// Units:   seconds of the monotonic clock.
// Thread:  its own, started with the first touchpad that is held; the functions on the reader's,
//          release() on any.
// Owner:   ClickInterception.
// Errors:  without a thread nothing can be held: hold() answers false.
#pragma once

#include "drivers/evdev/pad_directory.h"
#include "input/touch_driver.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace glidemap {

class ForwardingWatchdog {
public:
    using Clock = std::chrono::steady_clock;

    // As long as a person may be left without a touchpad; no callback takes a hundredth of it.
    static constexpr Clock::duration defaultPatience = std::chrono::seconds(1);

    struct Held {
        driver::Device device = nullptr;
        OpenPad* pad = nullptr; // grabbed
        PadClone* clone = nullptr;
    };

    // `onStall` is called on the watchdog's thread, after the touchpads were given back.
    ForwardingWatchdog(Clock::duration itsPatience, std::function<void()> onStall);
    ForwardingWatchdog(const ForwardingWatchdog&) = delete;
    ForwardingWatchdog& operator=(const ForwardingWatchdog&) = delete;
    ~ForwardingWatchdog();

    // Both live until it is released.
    bool hold(const Held& held);
    // Nothing happens to it once this has returned.
    void release(const OpenPad& pad);
    // False once it was given back.
    bool holds(const OpenPad& pad) const;

    // The reader has something to do.
    void work();
    // It has done a part of that.
    void progress();
    // It waits for more. `touched`: a touchpad that it forwards is.
    void rest(bool touched);

    // The device that was forwarded, if it came to a stall since this was last asked.
    std::optional<driver::Device> takeStall();

private:
    void run();
    void giveBack();
    bool isNeeded() const { return !held.empty() && (working || touchedAtRest); }

    const Clock::duration patience;
    const std::function<void()> onStall;

    mutable std::mutex mutex;
    std::condition_variable changed;
    std::vector<Held> held;
    bool working = false;
    bool touchedAtRest = false;
    bool dormant = false; // the thread waits without a time-out
    bool stopping = false;
    Clock::time_point lastProgress;
    std::optional<driver::Device> stalled;
    std::thread thread;
};

} // namespace glidemap

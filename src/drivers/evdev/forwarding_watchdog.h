// Gives the touchpads back to the system when the loop that forwards them gets stuck, in a callback
// for instance. Without it the user would have no touchpad then.
//
//   reader     poll ─▶ work() … progress() … rest() ─▶ poll ─▶ work() ……………… stuck ………………▶
//   watchdog   waits without a time-out ─▶ for a second at a time ──▶ gives back ─▶ onStall
//                      ▲──────────── nothing touches ────────────┘
//
// A touchpad that was given back is not held any more: the reader finds that out by asking before
// it writes.
//
// The thread is not woken for every report: from the first one of a touch on it looks once a
// second, and where the touch has ended, or a finger only rests, it goes to sleep.
//
// Thread:  its own, started with the first touchpad that is held; work(), progress() and rest() on
//          the reader's, the others on any.
// Owner:   ClickInterception.
// Errors:  without a thread nothing can be held: hold() answers false.
#pragma once

#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/watchdog_time.h"
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
    // As long as a person may be left without a touchpad; no callback takes a hundredth of it.
    static constexpr std::chrono::seconds patience{1};

    struct Held {
        driver::Device device = nullptr;
        OpenPad* pad = nullptr; // grabbed
        PadClone* clone = nullptr;
    };

    // `onStall` is called on the watchdog's thread, after the touchpads were given back.
    ForwardingWatchdog(WatchdogTime& itsTime, std::function<void()> onStall);
    ForwardingWatchdog(const ForwardingWatchdog&) = delete;
    ForwardingWatchdog& operator=(const ForwardingWatchdog&) = delete;
    ~ForwardingWatchdog();

    // Pad and clone live until it is released.
    bool hold(const Held& newlyHeld);
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

    // The process is about to be stopped: gives everything back as after a stall, and holds nothing
    // until it goes on. On any thread.
    void pause();
    void goOn();

    // The device that was forwarded, if it came to a stall since this was last asked. None
    // while paused.
    std::optional<driver::Device> takeStall();

private:
    void run();
    std::optional<WatchdogTime::Moment> deadline() const;
    void giveBack();
    void setWatching(bool now);

    WatchdogTime& time;
    const std::function<void()> onStall;

    mutable std::mutex mutex;
    std::condition_variable changed;
    std::vector<Held> held;
    bool working = false;
    bool watching = false;
    bool stopping = false;
    bool paused = false;
    WatchdogTime::Moment lastProgress;
    std::optional<driver::Device> stalled;
    std::thread thread;
};

} // namespace glidemap

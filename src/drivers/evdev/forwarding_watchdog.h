// Releases the touchpads when the loop that forwards them gets stuck, for instance in a callback.
// Without the watchdog the user would then have no touchpad.
//
//   reader     poll ─▶ work() … progress() … rest() ─▶ poll ─▶ work() ……………… stuck ………………▶
//   watchdog   waits without a time-out ─▶ for a second at a time ──▶ gives back ─▶ onStall
//                      ▲──────────── nothing touches ────────────┘
//
// A touchpad that was given back is not held any more. The reader checks this before it writes.
//
// The watchdog's thread is not woken for every report. From the first report of a touch on, it
// checks once a second. It sleeps once the touch has ended or a finger only rests.
//
// Thread:  its own, started with the first touchpad that is held; work(), progress() and rest() on
//          the reader's, the others on any.
// Owner:   ClickInterception.
// Errors:  hold() returns false if the thread cannot start.
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
    // The maximum time without a touchpad; a callback takes less than a hundredth of it.
    static constexpr std::chrono::seconds patience{1};

    struct Held {
        driver::Device device = nullptr;
        OpenPad* pad = nullptr; // grabbed
        PadClone* clone = nullptr;
    };

    // `onStall` is called on the watchdog's thread, after the touchpads were released.
    ForwardingWatchdog(WatchdogTime& itsTime, std::function<void()> onStall);
    ForwardingWatchdog(const ForwardingWatchdog&) = delete;
    ForwardingWatchdog& operator=(const ForwardingWatchdog&) = delete;
    ~ForwardingWatchdog();

    // Calls `grab`, which returns whether it grabbed the pad. If it did, the watchdog holds the
    // pad. pause() waits until hold() has returned, so the process never stops with a pad that is
    // grabbed but not held. While paused, returns false without calling `grab`. The pad and its
    // clone must live until release().
    bool hold(const Held& newlyHeld, const std::function<bool()>& grab);
    // The watchdog does not touch the pad once this has returned.
    void release(const OpenPad& pad);
    // Returns false if the watchdog gave the pad back.
    bool holds(const OpenPad& pad) const;

    // The reader starts to work.
    void work();
    // The reader has finished a part of its work.
    void progress();
    // The reader waits for events. `touched`: a finger is on a forwarded touchpad.
    void rest(bool touched);

    // The process is about to be stopped. Gives back all touchpads as after a stall, and holds none
    // until resume(). Called on any thread.
    void pause();
    void resume();
    bool isPaused() const;

    // Returns the device whose forwarding has stalled since the last call, if any. Returns nullopt
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

// Releases the touchpads if the loop that forwards their events gets stuck, for instance in a
// callback. Otherwise the user could not use any grabbed touchpad.
//
//   reader     poll ─▶ work() … progress() … rest() ─▶ poll ─▶ work() ……………… stuck ………………▶
//   watchdog   waits without a time-out ─▶ for a second at a time ──▶ releases ─▶ onStall
//                      ▲───────── no finger touches ──────────┘
//
// The reader must check holds() before it writes, because the watchdog may have released the
// touchpad.
//
// During a touch, only the first report wakes the watchdog's thread. The thread then checks the
// reader once a second, until the touch ends or no event has arrived for a second.
//
// Thread:  its own, started when the first touchpad is held; work(), progress() and rest() on the
//          reader's thread, all other functions on any thread.
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
    // The maximum time that a user is without a touchpad. A callback takes less than a hundredth of
    // this time.
    static constexpr std::chrono::seconds patience{1};

    struct Held {
        driver::Device device = nullptr;
        OpenPad* pad = nullptr; // grabbed
        PadClone* clone = nullptr;
    };

    // `onStall` is called on the watchdog's thread after a stall, when the touchpads have been
    // released. resume() also calls it, on the caller's thread.
    ForwardingWatchdog(WatchdogTime& time, std::function<void()> onStall);
    ForwardingWatchdog(const ForwardingWatchdog&) = delete;
    ForwardingWatchdog& operator=(const ForwardingWatchdog&) = delete;
    ~ForwardingWatchdog();

    // Calls `grab`, which returns whether it grabbed the pad. If so, the watchdog holds the pad.
    // pause() waits until hold() has returned, so the process never stops with a pad that is
    // grabbed but not held. While paused, returns false without calling `grab`. The pad and its
    // clone must live until release().
    bool hold(const Held& newlyHeld, const std::function<bool()>& grab);
    // If the watchdog holds the pad, calls `ungrab`, which returns whether it released the pad. If
    // so, the watchdog does not access the pad any more. Like hold(), pause() waits until this
    // function has returned.
    void release(const OpenPad& pad, const std::function<bool()>& ungrab);
    // Returns false if the watchdog has released the pad.
    bool holds(const OpenPad& pad) const;

    // Called by the reader when it starts to work.
    void work();
    // Called by the reader when it has completed a part of its work.
    void progress();
    // Called by the reader before it waits for events. `touched` is true if a finger is on a
    // forwarded touchpad.
    void rest(bool touched);

    // Call this before the process is stopped. Releases all touchpads as after a stall, and holds
    // none until resume(). May be called on any thread.
    void pause();
    void resume();
    bool isPaused() const;

    // Returns one of the touchpads that were released by a stall or by pause() since the last call.
    // Returns nullopt if none was released, and while paused.
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

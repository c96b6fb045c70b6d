// Port: the clock that the watchdog reads and waits with. Tests provide a clock that advances only
// on command.
//
// Thread:  now() on any thread; wait() on the watchdog's thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace glidemap {

class WatchdogTime {
public:
    using Moment = std::chrono::steady_clock::time_point;

    WatchdogTime() = default;
    WatchdogTime(const WatchdogTime&) = delete;
    WatchdogTime& operator=(const WatchdogTime&) = delete;
    virtual ~WatchdogTime() = default;

    virtual Moment now() const = 0;

    // Waits for a notification, at most until the given time if it is set. May wake up spuriously.
    virtual void wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
                      std::optional<Moment> until) = 0;
};

// The monotonic clock, which stops while the machine is suspended.
WatchdogTime& steadyWatchdogTime();

} // namespace glidemap

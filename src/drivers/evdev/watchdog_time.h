// Port: the time by which the watchdog waits. Tests bring one that stands still until it is moved.
//
// Thread:  now() on any; wait() on the watchdog's.
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

    // Until that moment, if there is one, until the condition is notified, or for no reason.
    virtual void wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
                      std::optional<Moment> until) = 0;
};

// The monotonic clock, which stands still while the machine sleeps.
WatchdogTime& steadyWatchdogTime();

} // namespace glidemap

#include "drivers/evdev/watchdog_time.h"

namespace glidemap {

namespace {

class SteadyTime : public WatchdogTime {
public:
    Moment now() const override { return std::chrono::steady_clock::now(); }

    void wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
              std::optional<Moment> until) override {
        if (until.has_value()) {
            condition.wait_until(lock, *until);
        } else {
            condition.wait(lock);
        }
    }
};

} // namespace

WatchdogTime& steadyWatchdogTime() {
    static auto* const time = new SteadyTime; // threads may outlive the program's static objects
    return *time;
}

} // namespace glidemap

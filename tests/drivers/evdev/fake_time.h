// A clock for the watchdog that advances only when a test moves it.
//
// Thread:  any.
#pragma once

#include "drivers/evdev/watchdog_time.h"

#include <chrono>
#include <optional>

namespace glidemap::test {

class FakeTime : public WatchdogTime {
public:
    static constexpr std::chrono::seconds limit{120};

    Moment now() const override {
        const std::lock_guard lock(mutex);
        return current;
    }

    void wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
              std::optional<Moment> until) override {
        {
            const std::lock_guard own(mutex);
            if (until.has_value() && current >= *until) {
                return;
            }
            waitingFor = {&condition, lock.mutex(), until};
            news.notify_all();
        }
        condition.wait(lock);
        const std::lock_guard own(mutex);
        waitingFor.reset();
    }

    void advance(std::chrono::nanoseconds step) {
        std::optional<Waiting> woken;
        {
            const std::lock_guard own(mutex);
            current += step;
            woken = waitingFor;
        }
        if (woken.has_value() && woken->until.has_value()) {
            { const std::lock_guard itWaitsByNow(*woken->lock); }
            woken->condition->notify_all();
        }
    }

    // Waits until the watchdog sleeps and will wake after `left`, or sleeps without a deadline if
    // `left` is nullopt. Returns false if this does not happen within `limit`.
    bool waitUntilWaitingFor(std::optional<std::chrono::nanoseconds> left) {
        std::unique_lock own(mutex);
        return news.wait_for(own, limit, [&] {
            if (!waitingFor.has_value() || waitingFor->until.has_value() != left.has_value()) {
                return false;
            }
            return !left.has_value() || *waitingFor->until - current == *left;
        });
    }

private:
    struct Waiting {
        std::condition_variable* condition;
        std::mutex* lock;
        std::optional<Moment> until;
    };

    mutable std::mutex mutex;
    std::condition_variable news;
    Moment current{};
    std::optional<Waiting> waitingFor;
};

} // namespace glidemap::test

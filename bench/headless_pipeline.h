// The whole pipeline without a touchpad: a device manager with its sink, an engine, its recognizer,
// and real threads or virtual time. Reports enter at the contact callback, as they do from a
// driver.
//
// Thread:  push() on one thread, which stands in for the driver's thread.
// Owner:   the benchmark; one at a time, because the manager's sink is global to the process.
#pragma once

#include "bench/thread_watch.h"
#include "bench/touching.h"
#include "core/delayed_work.h"
#include "core/serial_queue.h"
#include "core/uptime_clock.h"
#include "input/multitouch_device_manager.h"
#include "recognition/touch_engine.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace glidemap::bench {

class HeadlessPipeline {
public:
    struct Ports {
        std::shared_ptr<UptimeClock> clock;
        std::shared_ptr<SerialQueue> queue;
        std::shared_ptr<DelayedWork> delayedWork;
    };

    explicit HeadlessPipeline(const Ports& ports);
    HeadlessPipeline(const HeadlessPipeline&) = delete;
    HeadlessPipeline& operator=(const HeadlessPipeline&) = delete;
    ~HeadlessPipeline();

    // Call before the first report.
    void onGesture(std::function<void(GestureType)> callback);
    void bindDoubleTaps();

    static void push(const Report& report, double timestamp) {
        MultitouchDeviceManager::contactCallback(
            nullptr, report.data(), static_cast<std::int32_t>(report.size()), timestamp, 0);
    }

private:
    MultitouchDeviceManager manager;
    std::shared_ptr<TouchEngine> engine;
};

// A clock on which consecutive gestures are a second apart, so that the cooldown drops no gesture.
class StridingClock : public UptimeClock {
public:
    double uptime() const override { return ++seconds; }

private:
    mutable std::atomic<int> seconds = 1000;
};

// The real queue and the real delayed work, configured as in the program.
class RealThreads {
public:
    RealThreads();

    const std::shared_ptr<SerialQueue>& queue() const { return _queue; }
    const std::shared_ptr<DelayedWork>& delayedWork() const { return _delayedWork; }
    HeadlessPipeline::Ports ports() const;

    // Waits until every submitted task has run.
    void waitUntilIdle() const;

    // Waits until every submitted task has run and the queue's thread is asleep.
    void waitUntilAsleep() const;

    // Waits until the queue's thread is asleep, without waking it. Deferred tasks may remain in the
    // queue.
    void waitUntilSleeping() const;

    pid_t queueThreadId() const { return threadId; }

    // Runs `function` on the queue's thread and returns its result.
    std::int64_t callOnQueueThread(std::int64_t (*function)()) const;

private:
    std::shared_ptr<SerialQueue> _queue;
    std::shared_ptr<DelayedWork> _delayedWork;
    pid_t threadId = 0;
    std::optional<SleepWatch> queueThread;
};

} // namespace glidemap::bench

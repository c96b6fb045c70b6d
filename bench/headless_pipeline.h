// The whole pipeline without a touchpad: a device manager with its sink, an engine, its recognizer,
// and the real threads or virtual time behind them. Reports enter where a driver's would, at the
// contact callback.
//
// Thread:  push() on the one that plays the driver.
// Owner:   whoever measures; one at a time, because the manager's sink is one for the process.
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

    // Before the first report.
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

// A clock on which every gesture is a second after the one before, so that none falls to the
// cooldown.
class StridingClock : public UptimeClock {
public:
    double uptime() const override { return ++seconds; }

private:
    mutable std::atomic<int> seconds = 1000;
};

// The real queue and the real delayed work, set up as the program sets them up.
class RealThreads {
public:
    RealThreads();

    const std::shared_ptr<SerialQueue>& queue() const { return _queue; }
    const std::shared_ptr<DelayedWork>& delayedWork() const { return _delayedWork; }
    HeadlessPipeline::Ports ports() const;

    // Returns once everything submitted has run.
    void waitUntilIdle() const;

    // Returns once everything submitted has run and the queue's thread has gone to sleep.
    void waitUntilAsleep() const;

    // Runs `function` on the queue's thread and waits for its answer.
    std::int64_t ask(std::int64_t (*function)()) const;

private:
    std::shared_ptr<SerialQueue> _queue;
    std::shared_ptr<DelayedWork> _delayedWork;
    std::optional<SleepWatch> queueThread;
};

} // namespace glidemap::bench

// Tests the engine with the real queue, delayed work and clock, for races that only real threads
// can show. The thread sanitizer makes such races visible.

#include "core/serial_queue.h"
#include "core/task.h"
#include "input/multitouch_device_manager.h"
#include "platform/common/steady_uptime_clock.h"
#include "platform/common/threaded_delayed_work.h"
#include "platform/common/threaded_serial_queue.h"
#include "recognition/touch_engine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

constexpr double frameInterval = 0.008; // seconds

class EngineOnRealThreads : public testing::Test {
protected:
    EngineOnRealThreads()
        : manager({"/no/such/driver.so",
                   [](void*) {
                       return TouchDriverPlatform::ListAccess{};
                   }}),
          engine(makeEngine()) {}

    ~EngineOnRealThreads() override {
        if (engine) {
            engine->stop();
        }
    }

    std::shared_ptr<TouchEngine> makeEngine() {
        return TouchEngine::create({std::make_shared<SteadyUptimeClock>(),
                                    std::make_shared<ThreadedSerialQueue>(),
                                    std::make_shared<ThreadedDelayedWork>(), &manager});
    }

    // Reports a frame on the calling thread, as the driver does on its own thread.
    void report(int fingers, double x = 0.5) {
        std::vector<MTTouch> records(static_cast<std::size_t>(fingers));
        for (int finger = 0; finger < fingers; ++finger) {
            MTTouch& record = records[static_cast<std::size_t>(finger)];
            record.identifier = finger + 1;
            record.state = static_cast<std::int32_t>(MTTouchState::touching);
            record.normalized.pos = {static_cast<float>(x + 0.1 * finger), 0.5F};
        }
        time += frameInterval;
        MultitouchDeviceManager::contactCallback(nullptr, records.data(), fingers, time, 0);
    }

    void tap(int fingers) {
        for (int frame = 0; frame < 10; ++frame) {
            report(fingers);
        }
        report(0);
    }

    MultitouchDeviceManager manager;
    std::shared_ptr<TouchEngine> engine;
    double time = 1;
};

TEST_F(EngineOnRealThreads, DeliversTapOnAnotherThread) {
    std::promise<std::pair<GestureType, std::thread::id>> delivered;
    engine->onGesture = [&](GestureType gesture) {
        delivered.set_value({gesture, std::this_thread::get_id()});
    };
    engine->start();
    tap(3);
    const auto [gesture, thread] = delivered.get_future().get();
    EXPECT_EQ(gesture, GestureType::threeFingerTap);
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST_F(EngineOnRealThreads, DelayedWorkThreadDeliversATapIfADoubleTapIsBound) {
    std::promise<std::thread::id> queueThread;
    engine->sessionRecognizer().doubleTapBindingExists = [&](int) {
        queueThread.set_value(std::this_thread::get_id());
        return true;
    };
    std::promise<std::thread::id> delivered;
    engine->onGesture = [&](GestureType) {
        delivered.set_value(std::this_thread::get_id());
    };
    engine->start();
    tap(2);
    EXPECT_NE(queueThread.get_future().get(), delivered.get_future().get());
}

TEST_F(EngineOnRealThreads, TouchingCountCanBeReadWhileReportsArrive) {
    engine->start();
    std::atomic<bool> done = false;
    std::thread driver([&] {
        for (int turn = 0; turn < 2000; ++turn) {
            report(turn % 6);
        }
        report(0);
        done = true;
    });
    int highest = 0;
    while (!done.load()) {
        highest = std::max(highest, engine->touchingCount());
    }
    driver.join();
    EXPECT_LE(highest, 5);
    EXPECT_EQ(engine->touchingCount(), 0);
}

TEST_F(EngineOnRealThreads, DeliversNoGestureAfterStop) {
    std::atomic<int> delivered = 0;
    engine->onGesture = [&](GestureType) {
        ++delivered;
    };
    engine->sessionRecognizer().doubleTapBindingExists = [](int) {
        return true;
    };
    engine->start();
    for (int turn = 0; turn < 50; ++turn) {
        tap(2 + turn % 4);
    }
    engine->stop();
    const int atStop = delivered.load();
    tap(5);
    for (int turn = 0; turn < 1000; ++turn) {
        std::this_thread::yield();
    }
    EXPECT_EQ(delivered.load(), atStop);
}

TEST_F(EngineOnRealThreads, CanBeDestroyedWithQueuedWork) {
    for (int turn = 0; turn < 200; ++turn) {
        engine->sessionRecognizer().doubleTapBindingExists = [](int) {
            return true;
        };
        engine->onGesture = [](GestureType) {
        };
        engine->start();
        tap(2);
        tap(3);
        tap(5);
        engine = makeEngine(); // destroys the previous engine without a stop
    }
    tap(5); // ignored, because the engine that received reports is destroyed
}

// Runs tasks on request, even after stop(), to simulate driver reports that arrive late.
class ManualQueue : public SerialQueue {
public:
    void submit(Task task) override { tasks.push_back(std::move(task)); }
    void stop() override {}

    void runAll() {
        for (Task& task : std::exchange(tasks, {})) {
            task();
        }
    }

private:
    std::vector<Task> tasks;
};

class EngineWithManualQueue : public EngineOnRealThreads {
protected:
    EngineWithManualQueue() {
        engine = TouchEngine::create({std::make_shared<SteadyUptimeClock>(), queue,
                                      std::make_shared<ThreadedDelayedWork>(), &manager});
        engine->sessionRecognizer().doubleTapBindingExists = [this](int) {
            ++decisions;
            return false;
        };
        engine->start();
    }

    std::shared_ptr<ManualQueue> queue = std::make_shared<ManualQueue>();
    int decisions = 0;
};

TEST_F(EngineWithManualQueue, RecognisesQueuedFramesWhileRunning) {
    tap(3);
    queue->runAll();
    EXPECT_EQ(decisions, 1);
}

TEST_F(EngineWithManualQueue, IgnoresQueuedFramesAfterStop) {
    tap(3);
    engine->stop();
    queue->runAll();
    EXPECT_EQ(decisions, 0);
}

TEST_F(EngineWithManualQueue, IgnoresQueuedFramesAfterDestruction) {
    tap(3);
    engine.reset();
    queue->runAll();
    EXPECT_EQ(decisions, 0);
}

TEST_F(EngineOnRealThreads, CanBeDestroyedOnItsOwnQueue) {
    std::promise<void> destroyed;
    std::promise<void> handedOver;
    auto handed = handedOver.get_future().share();
    engine->onGesture = [&, handed](GestureType) {
        handed.wait();
        engine.reset();
        destroyed.set_value();
    };
    engine->start();
    tap(5);
    handedOver.set_value();
    destroyed.get_future().wait();
    EXPECT_EQ(engine, nullptr);
}

} // namespace
} // namespace glidemap

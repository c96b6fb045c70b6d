#include "bench/headless_pipeline.h"

#include "platform/common/threaded_delayed_work.h"
#include "platform/common/threaded_serial_queue.h"
#include "platform/linux/thread_setup.h"
#include "platform/linux/touch_driver_platform.h"

#include <thread>
#include <utility>

namespace glidemap::bench {

namespace {

// A path without a library. The manager stores the error and has no devices, but the engine still
// installs its sink.
constexpr const char* noDriver = "/nonexistent/touch-driver.so";

void prepareQueueThread() {
    setUpResponsiveThread(TouchEngine::queueLabel);
}

void prepareDelayedThread() {
    setUpResponsiveThread("delayed work");
}

} // namespace

HeadlessPipeline::HeadlessPipeline(const Ports& ports)
    : manager(touchDriverPlatformAt(noDriver)),
      engine(TouchEngine::create({ports.clock, ports.queue, ports.delayedWork, &manager})) {
    engine->start();
}

HeadlessPipeline::~HeadlessPipeline() {
    engine->stop();
}

void HeadlessPipeline::onGesture(std::function<void(GestureType)> callback) {
    engine->onGesture = std::move(callback);
}

void HeadlessPipeline::bindDoubleTaps() {
    engine->sessionRecognizer().doubleTapBindingExists = [](int /*count*/) {
        return true;
    };
}

RealThreads::RealThreads()
    : _queue(std::make_shared<ThreadedSerialQueue>(prepareQueueThread)),
      _delayedWork(std::make_shared<ThreadedDelayedWork>(prepareDelayedThread)) {
    threadId = static_cast<pid_t>(
        callOnQueueThread([] { return static_cast<std::int64_t>(thisThread()); }));
    queueThread.emplace(threadId);
}

HeadlessPipeline::Ports RealThreads::ports() const {
    return {std::make_shared<StridingClock>(), _queue, _delayedWork};
}

std::int64_t RealThreads::callOnQueueThread(std::int64_t (*function)()) const {
    // Poll the flag, because waking a waiting thread would take time on the measured thread.
    std::atomic<bool> answered = false;
    std::int64_t answer = 0;
    _queue->submit([&answered, &answer, function] {
        answer = function();
        answered.store(true, std::memory_order_release);
    });
    while (!answered.load(std::memory_order_acquire)) {
        std::this_thread::yield();
    }
    return answer;
}

void RealThreads::waitUntilIdle() const {
    callOnQueueThread([] { return std::int64_t{0}; });
}

void RealThreads::waitUntilAsleep() const {
    waitUntilIdle();
    waitUntilSleeping();
}

void RealThreads::waitUntilSleeping() const {
    while (!queueThread->sleeps()) {
        std::this_thread::yield();
    }
}

} // namespace glidemap::bench

#include "recognition/touch_engine.h"

#include "core/log.h"
#include "core/task.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// Room for more than two hands, so that an array need not grow when it is reused.
constexpr std::size_t usualTouches = 16;

std::function<TouchEngine::Ports()>& sharedPorts() {
    static std::function<TouchEngine::Ports()> makePorts;
    return makePorts;
}

} // namespace

std::shared_ptr<TouchEngine> TouchEngine::create(Ports ports) {
    auto engine = std::make_shared<TouchEngine>(ConstructionKey{}, std::move(ports));
    engine->connect();
    return engine;
}

void TouchEngine::configureShared(std::function<Ports()> makePorts) {
    sharedPorts() = std::move(makePorts);
}

const std::shared_ptr<TouchEngine>& TouchEngine::shared() {
    assert(sharedPorts());
    static const std::shared_ptr<TouchEngine> instance = create(sharedPorts()());
    return instance;
}

TouchEngine::TouchEngine(ConstructionKey /*key*/, Ports ports)
    : ports(std::move(ports)), session(SessionRecognizer::create(this->ports.delayedWork)),
      recognizers(std::make_shared<const Recognizers>(Recognizers{session})) {}

void TouchEngine::connect() {
    session->onGesture = [weakly = weak_from_this()](GestureType gesture) {
        if (const auto engine = weakly.lock()) {
            engine->deliver(gesture);
        }
    };
}

void TouchEngine::start() {
    if (!started) {
        forgetTouches();
    }
    started = true;
    MultitouchDeviceManager::setFrameSink(
        [weakly = weak_from_this()](driver::Device /*device*/, const std::vector<MTTouch>& records,
                                    double timestamp) {
            if (const auto engine = weakly.lock()) {
                engine->handleRawFrame(records, timestamp);
            }
        });
    ports.deviceManager->start();
    // The device manager's start() does not scan again if an earlier start found no device. Do not
    // scan while devices run: macOS's trackpad framework creates new objects for each list, so
    // running devices would look new.
    if (std::exchange(hasStarted, true) && !ports.deviceManager->isRunning()) {
        ports.deviceManager->lookForDevices();
    }
}

void TouchEngine::lookForDevices() {
    if (started) {
        ports.deviceManager->lookForDevices();
    }
}

// Call only while the queue is idle: before start() or after stop().
void TouchEngine::forgetTouches() {
    for (const auto& recognizer : *recognizers) {
        recognizer->forget();
    }
    awaitedChange = noChange;
    const std::lock_guard lock(touchCountLock);
    _touchingCount = 0;
    fingerChanges.forget();
}

// The queue is stopped before the devices: stopping a device waits for the driver, which may be
// waiting for room in the queue. Afterwards the queue is stopped again, to discard frames that have
// arrived in between.
void TouchEngine::stop() {
    started = false;
    ports.queue->stop();
    ports.deviceManager->stop();
    MultitouchDeviceManager::setFrameSink({});
    ports.queue->stop();
    ports.delayedWork->stop();
}

int TouchEngine::touchingCount() const {
    const std::lock_guard lock(touchCountLock);
    return _touchingCount;
}

void TouchEngine::handleRawFrame(const std::vector<MTTouch>& records, double timestamp) {
    TouchFrame frame{timestamp, frames->take()};
    frame.touches.reserve(std::max(records.size(), usualTouches));
    int touching = 0;
    for (const MTTouch& record : records) {
        const TouchPoint touch = touchPoint(record);
        touching += touch.isTouching ? 1 : 0;
        frame.touches.push_back(touch);
    }
    std::uint64_t change = 0;
    {
        const std::lock_guard lock(touchCountLock);
        _touchingCount = touching;
        change = fingerChanges.countWith(frame.touches);
    }
    Task task = [weakly = weak_from_this(), change, frame = std::move(frame)]() mutable {
        const auto engine = weakly.lock();
        if (engine && engine->started) {
            engine->process(frame, change);
            engine->frames->giveBack(std::move(frame.touches));
        }
    };
    if (awaitedChange == change) {
        ports.queue->defer(std::move(task));
    } else {
        ports.queue->submit(std::move(task));
    }
}

void TouchEngine::process(const TouchFrame& frame, std::uint64_t change) {
    bool wait = true;
    for (const auto& recognizer : *recognizers) {
        recognizer->process(frame);
        wait = wait && recognizer->waitsForFingers();
    }
    awaitedChange = wait ? change : noChange;
}

void TouchEngine::deliver(GestureType gesture) {
    if (!passesCooldown()) {
        logLine("gestures", rawValue(gesture), " dropped: too soon after the previous gesture");
    } else if (onGesture) {
        onGesture(gesture);
    }
}

// Two threads deliver gestures. If both deliver at the same time, only one gesture may pass.
bool TouchEngine::passesCooldown() {
    const double now = ports.clock->uptime();
    double last = lastFireTime.load();
    do {
        if (now - last < fireCooldown) {
            return false;
        }
    } while (!lastFireTime.compare_exchange_weak(last, now));
    return true;
}

} // namespace glidemap

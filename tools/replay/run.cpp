#include "run.h"

#include <cmath>
#include <utility>
#include <variant>

namespace glidemap::replay {

Run::Run(ReplayDriver& replayDriver, Pace::Speed speed, Listener newListener)
    : driver(replayDriver), pace(speed), listener(std::move(newListener)),
      engine(TouchEngine::create({.clock = time.clock(),
                                  .queue = time.queue(),
                                  .delayedWork = time.delayedWork(),
                                  .deviceManager = &driver.deviceManager()})) {
    listen();
    engine->start();
}

Run::~Run() {
    engine->stop();
}

// The recognizer reports to the engine's cooldown, which tells nobody what it drops. So we stand
// before it and see whether the gesture comes out behind.
void Run::listen() {
    engine->onGesture = [this](GestureType) {
        wasDelivered = true;
    };
    SessionRecognizer& recognizer = engine->sessionRecognizer();
    recognizer.onGesture = [this, deliver = recognizer.onGesture](GestureType gesture) {
        wasDelivered = false;
        deliver(gesture);
        listener({time.now(), gesture, wasDelivered});
    };
    recognizer.doubleTapBindingExists = [this](int fingerCount) {
        return boundDoubleTaps.contains(fingerCount);
    };
}

void Run::play(const Record& record) {
    advanceTo(timeOf(record));
    std::visit([this](const auto& any) { act(any); }, record);
}

void Run::play(double moment, const std::vector<MTTouch>& touches) {
    advanceTo(moment);
    driver.push(touches, moment);
    time.runSubmitted();
}

void Run::act(const Report& report) {
    driver.push(report.touches, report.time);
    time.runSubmitted();
}

// Clicks and applications decide what a gesture does, not which one it is. Here they let time pass.
void Run::act(const ButtonRecord& /*button*/) {}
void Run::act(const FrontmostRecord& /*frontmost*/) {}
void Run::act(const TimeRecord& /*moment*/) {}

void Run::advanceTo(double moment) {
    while (pace.isRealTime() && time.nextDeadline() <= moment) {
        pace.waitUntil(time.nextDeadline());
        time.advanceTo(time.nextDeadline());
    }
    pace.waitUntil(moment);
    time.advanceTo(moment);
}

void Run::finish() {
    while (pace.isRealTime() && std::isfinite(time.nextDeadline())) {
        advanceTo(time.nextDeadline());
    }
    time.runRemaining();
}

} // namespace glidemap::replay

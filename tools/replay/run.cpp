#include "run.h"

#include <algorithm>
#include <cmath>
#include <thread>
#include <utility>
#include <variant>

namespace glidemap::replay {

namespace {

// In seconds: longer than any machine runs, but within the clock's range.
constexpr double maxWait = 1e9;

} // namespace

void Pace::waitUntil(double time) {
    if (!isRealTime()) {
        return;
    }
    if (!last || time < last->time) {
        last = {Clock::now(), time};
        return;
    }
    const std::chrono::duration<double> wait(std::min(time - last->time, maxWait));
    last = {last->moment + std::chrono::duration_cast<Clock::duration>(wait), time};
    std::this_thread::sleep_until(last->moment);
}

Run::Run(ReplayDriver& driver, Pace::Speed speed, BindingList bindings, Listener listener)
    : driver(driver), pace(speed), listener(std::move(listener)),
      engine(TouchEngine::create({.clock = time.clock(),
                                  .queue = time.queue(),
                                  .delayedWork = time.delayedWork(),
                                  .deviceManager = &driver.deviceManager()})),
      desktop(std::move(bindings), time, engine, this->listener) {
    listen();
    desktop.start();
}

Run::~Run() {
    desktop.stop();
}

// The engine does not report the gestures that its cooldown drops. The run therefore intercepts
// each gesture on its way from the recognizer to the engine, and checks whether the engine delivers
// it.
void Run::listen() {
    SessionRecognizer& recognizer = engine->sessionRecognizer();
    recognizer.onGesture = [this, deliver = recognizer.onGesture](GestureType gesture) {
        deliver(gesture);
        const std::optional<Routing> routing = desktop.takeRouting();
        listener(Recognised{time.now(), gesture, routing.has_value(), routing.value_or(Routing{})});
    };
    recognizer.doubleTapBindingExists =
        [this, isBound = recognizer.doubleTapBindingExists](int fingerCount) {
            return boundDoubleTaps.contains(fingerCount) || isBound(fingerCount);
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

void Run::act(const ButtonRecord& button) {
    desktop.change(button);
    time.runSubmitted();
}

void Run::act(const FrontmostRecord& frontmost) {
    desktop.activate(frontmost);
}

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

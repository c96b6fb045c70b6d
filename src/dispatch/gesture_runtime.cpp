#include "dispatch/gesture_runtime.h"

#include <utility>

namespace glidemap {

// The click demand must exist before the click monitor starts. Otherwise the monitor would start
// the click tap even if no binding needs it.
GestureRuntime::GestureRuntime(Parts connected)
    : parts(std::make_shared<const Parts>(std::move(connected))),
      clicks(parts->clickTap, [engine = parts->engine] { return engine->touchingCount(); }),
      demand(parts->dispatcher, parts->clickTap) {
    connectEngine();
    connectClicks();
    if (parts->session != nullptr) {
        toSession = parts->session->changes().subscribe({}, [this] { followSession(); });
    }
}

void GestureRuntime::connectEngine() {
    parts->engine->onGesture = [weak = std::weak_ptr(parts)](GestureType gesture) {
        if (const auto held = weak.lock()) {
            held->dispatcher->handle(gesture, true);
        }
    };
    parts->engine->sessionRecognizer().doubleTapBindingExists =
        [weak = std::weak_ptr(parts)](int fingerCount) {
            const auto held = weak.lock();
            return held != nullptr && held->store->doubleTapBindingExists(fingerCount);
        };
}

void GestureRuntime::connectClicks() {
    clicks.onClickGesture = [weak = std::weak_ptr(parts)](GestureType gesture) {
        const auto held = weak.lock();
        return held != nullptr && held->dispatcher->handleClickGesture(gesture);
    };
}

void GestureRuntime::start() {
    isStarted = true;
    if (mayRun() && !isRunning) {
        resume();
    }
}

void GestureRuntime::stop() {
    isStarted = false;
    pause();
}

void GestureRuntime::accessMayHaveChanged() {
    if (isRunning) {
        parts->engine->lookForDevices();
        clicks.start();
    }
}

bool GestureRuntime::mayRun() const {
    const auto& session = parts->session;
    return isStarted && (session == nullptr || (session->isActive() && !session->isAsleep()));
}

void GestureRuntime::followSession() {
    if (mayRun() == isRunning) {
        return;
    }
    if (isRunning) {
        pause();
    } else {
        resume();
    }
}

void GestureRuntime::resume() {
    isRunning = true;
    parts->engine->start();
    clicks.start();
}

void GestureRuntime::pause() {
    isRunning = false;
    parts->engine->stop();
    clicks.stop();
}

} // namespace glidemap

#include "dispatch/gesture_input.h"

#include <utility>

namespace glidemap {

GestureInput::GestureInput(std::shared_ptr<TouchEngine> touchEngine, ClickMonitor& clickMonitor,
                           std::shared_ptr<UserSession> userSession)
    : engine(std::move(touchEngine)), clicks(clickMonitor), session(std::move(userSession)) {
    if (session != nullptr) {
        toSession = session->changes().subscribe({}, [this] { followSession(); });
    }
}

void GestureInput::start() {
    isStarted = true;
    if (mayRun() && !isRunning) {
        resume();
    }
}

void GestureInput::stop() {
    isStarted = false;
    pause();
}

void GestureInput::devicesMayHaveChanged() {
    if (isRunning) {
        engine->lookForDevices();
        clicks.start();
    }
}

bool GestureInput::mayRun() const {
    return isStarted && (session == nullptr || session->isActive());
}

void GestureInput::followSession() {
    if (mayRun() == isRunning) {
        return;
    }
    if (isRunning) {
        pause();
        return;
    }
    resume();
    engine->lookForDevices(); // one may have come where there was none: starting does not look then
}

void GestureInput::resume() {
    isRunning = true;
    engine->start();
    clicks.start();
}

void GestureInput::pause() {
    isRunning = false;
    engine->stop();
    clicks.stop();
}

} // namespace glidemap

// Runs the touch engine and the click monitor while the program runs and its session is in front.
//
//   start ──▶ running ◀──▶ paused ──▶ stop
//                  the session is active, or not
//
// While another session is in front nothing is read, recognised or taken: its user has the same
// touchpad.
//
// Thread:  the main thread.
// Owner:   the program makes one beside the engine and the monitor, which it has set up by then.
// Errors:  none.
#pragma once

#include "core/observable.h"
#include "dispatch/click_monitor.h"
#include "dispatch/user_session.h"
#include "recognition/touch_engine.h"

#include <memory>

namespace glidemap {

class GestureInput {
public:
    // A system without sessions gives none: null.
    GestureInput(std::shared_ptr<TouchEngine> touchEngine, ClickMonitor& clickMonitor,
                 std::shared_ptr<UserSession> userSession);
    GestureInput(const GestureInput&) = delete;
    GestureInput& operator=(const GestureInput&) = delete;
    ~GestureInput() = default;

    void start();

    // Idempotent, and for good.
    void stop();

    // Touchpads may have come, and what had no access may have it now.
    void devicesMayHaveChanged();

private:
    bool mayRun() const;
    void followSession();
    void resume();
    void pause();

    std::shared_ptr<TouchEngine> engine;
    ClickMonitor& clicks;
    std::shared_ptr<UserSession> session;
    bool isStarted = false;
    bool isRunning = false;
    Subscription toSession;
};

} // namespace glidemap

// The program without its interface: connects the touch engine, the bindings, the dispatcher and the clicks, and runs them while
// the program runs and its session is in front.
//
//   touches ─▶ engine ──────gesture──▶ dispatcher ─▶ action
//                ▲                        ▲    │
//                └─ is a double tap bound? ─ store
//   clicks ──▶ click tap ─▶ monitor ──gesture─┘
//                ▲
//                └─ is a click bound? ─ demand
//
//   start ──▶ running ◀──▶ paused ──▶ stop
//                  the session is active, or not
//
// While another session is in front nothing is read, recognised or swallowed: its user has the same touchpad.
//
// Thread:  the main thread. The callbacks that it installs in the engine and the monitor run on their threads, hold it weakly,
//          and do nothing once it has gone.
// Owner:   the application, the agent of the tests and each replayed recording make one.
// Errors:  none of its own. Without a touchpad or permission the rest works.
#pragma once

#include "bindings/binding_store.h"
#include "core/observable.h"
#include "dispatch/click_demand.h"
#include "dispatch/click_monitor.h"
#include "dispatch/click_tap.h"
#include "dispatch/gesture_dispatcher.h"
#include "dispatch/user_session.h"
#include "recognition/touch_engine.h"

#include <memory>

namespace glidemap {

class GestureRuntime {
public:
    struct Parts {
        std::shared_ptr<TouchEngine> engine;
        std::shared_ptr<BindingStore> store;
        std::shared_ptr<GestureDispatcher> dispatcher;
        std::shared_ptr<ClickTap> clickTap;
        std::shared_ptr<UserSession> session = nullptr; // null: always in front
    };

    explicit GestureRuntime(Parts connected);
    GestureRuntime(const GestureRuntime&) = delete;
    GestureRuntime& operator=(const GestureRuntime&) = delete;
    ~GestureRuntime() = default;

    void start();

    // Idempotent, and for good.
    void stop();

    // Touchpads may have come, and what had no access may have it now.
    void accessMayHaveChanged();

    TouchEngine& engine() { return *parts->engine; }
    BindingStore& store() { return *parts->store; }
    GestureDispatcher& dispatcher() { return *parts->dispatcher; }
    ClickMonitor& clickMonitor() { return clicks; }

private:
    void connectEngine();
    void connectClicks();
    bool mayRun() const;
    void followSession();
    void resume();
    void pause();

    std::shared_ptr<const Parts> parts;
    ClickMonitor clicks;
    ClickDemand demand;
    bool isStarted = false;
    bool isRunning = false;
    Subscription toSession;
};

} // namespace glidemap

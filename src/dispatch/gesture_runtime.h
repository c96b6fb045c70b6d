// The program without its interface: connects the touch engine, the bindings, the dispatcher and
// the clicks, and runs them while the user's session is active.
//
//   touches ─▶ engine ──────gesture──▶ dispatcher ─▶ action
//                ▲                        ▲    │
//                └─ is a double tap bound? ─ store
//   clicks ──▶ click tap ─▶ monitor ──gesture─┘
//                ▲
//                └─ is a click bound? ─ demand
//
//   start ──▶ running ◀──▶ paused ──▶ stop
//                  the session becomes active or inactive, the machine sleeps or wakes
//
// While another session is active, this program reads, recognises and consumes nothing, because the
// user of that session uses the same touchpad. It also pauses while the machine sleeps, so that no
// touch continues after wake-up.
//
// Thread:  the main thread. The callbacks that the runtime installs in the engine and the monitor
//          run on those objects' threads, hold the runtime's parts weakly, and do nothing after its
//          destruction.
// Owner:   the application, the test agent and each replayed recording create their own.
// Errors:  none of its own. If the touchpad or a permission is missing, the other parts keep
//          working.
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
        std::shared_ptr<UserSession> session = nullptr; // null: the session is always active
    };

    explicit GestureRuntime(Parts connected);
    GestureRuntime(const GestureRuntime&) = delete;
    GestureRuntime& operator=(const GestureRuntime&) = delete;
    ~GestureRuntime() = default;

    void start();

    // Idempotent. After this call, changes of the session have no effect until the next start().
    void stop();

    // Call this when touchpads may have been attached or the program may have gained access to
    // them.
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

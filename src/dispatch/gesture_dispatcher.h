// Maps a gesture to its action: finds the binding for the frontmost application, runs its action on
// the main thread, and keeps the log of recent gestures and the master switch.
//
//   engine's queue, delayed work ─▶ handle ─────────────┐   main queue
//                                                       ├─▶ action, then log entry ─▶ recentEvents
//   thread of the click tap ──────▶ handleClickGesture ─┘
//
// While the master switch is off, gestures are ignored. Otherwise every gesture is logged, with or
// without a binding. Clicks are logged only if they are consumed, because all others are ordinary
// clicks.
//
// While the session is locked, only the lock action runs, and the log of recent gestures stays
// unchanged. An action that reaches the main thread too late is dropped together with its log
// entry, and clicks pass while the main thread is stalled. See timely_queue.h.
//
// Thread:  handle(), handleClickGesture(), masterEnabled(), frontmost() and resolveBinding() on any
//          thread, also concurrently; they never wait for an action. All other functions on the
//          main thread.
// Owner:   the program creates one. Tasks on the main queue hold it weakly and do nothing after its
//          destruction.
// Errors:  none.
#pragma once

#include "bindings/binding_store.h"
#include "core/gesture_type.h"
#include "core/lang.h"
#include "core/main_queue.h"
#include "core/observable.h"
#include "core/user_defaults.h"
#include "dispatch/action_runner.h"
#include "dispatch/gesture_log_entry.h"
#include "dispatch/timely_queue.h"
#include "dispatch/user_session.h"
#include "dispatch/workspace.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

class GestureDispatcher : public std::enable_shared_from_this<GestureDispatcher> {
public:
    struct Ports {
        std::shared_ptr<BindingStore> store;
        std::shared_ptr<UserDefaults> defaults;
        std::shared_ptr<MainQueue> mainQueue;
        std::shared_ptr<Workspace> workspace;
        std::shared_ptr<ActionRunner> actionRunner;
        // called on any thread
        std::function<WallTime()> wallClock = std::chrono::system_clock::now;
        const Lang* lang = &Lang::shared();                   // the language of the log's texts
        std::shared_ptr<const UserSession> session = nullptr; // null: the session is never locked
        TimelyQueue::Clock clock = std::chrono::steady_clock::now;
    };

    static constexpr std::string_view masterEnabledKey = "masterEnabled";
    static constexpr std::size_t maxRecentEvents = 20;

    // Restores the master switch from its stored value; the default is on.
    static std::shared_ptr<GestureDispatcher> create(Ports ports);

    // Returns whether a binding was found that may run now. Its action runs only if `execute` is
    // true.
    bool handle(GestureType gesture, bool execute);

    // Returns whether a binding was found and its action was submitted. The caller then consumes
    // the click.
    bool handleClickGesture(GestureType gesture);

    // While the switch is off, gestures are neither handled nor logged.
    bool masterEnabled() const { return _masterEnabled.load(); }
    void setMasterEnabled(bool enabled);

    // The newest event is first.
    const std::vector<GestureLogEntry>& recentEvents() const { return _recentEvents; }

    // Notifies of changes to the master switch and the recent events.
    Observable& changes() { return observers; }

    Application frontmost() const { return ports.workspace->frontmostApplication(); }

    // If a circle has no binding for its own direction, the binding of the circle in any direction
    // applies.
    std::shared_ptr<const GestureBinding>
    resolveBinding(GestureType gesture, std::optional<std::string_view> bundleID) const;

    BindingStore& store() const { return *ports.store; }

private:
    struct ConstructionKey {};

public:
    GestureDispatcher(ConstructionKey key, Ports ports);

private:
    using Binding = std::shared_ptr<const GestureBinding>;

    GestureLogEntry makeEntry(GestureType gesture, const GestureBinding* binding,
                              std::optional<std::string> appName) const;
    bool mayRun(const GestureBinding& binding) const;
    bool isLocked() const { return ports.session != nullptr && ports.session->isLocked(); }
    void runLater(Binding binding);
    void logLater(GestureLogEntry entry, TimelyQueue::IfLate ifLate);
    void log(GestureLogEntry entry);

    Ports ports;
    TimelyQueue mainQueue;
    std::atomic<bool> _masterEnabled;
    std::vector<GestureLogEntry> _recentEvents;
    Observable observers;
};

} // namespace glidemap

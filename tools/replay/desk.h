// The program's runtime for one run, with ports that report every action to the listener. The
// simulated desktop inspects each gesture and click before the dispatcher handles it, to report the
// matching binding.
//
//   gesture, click ─▶ dispatcher ─▶ main queue ─▶ action runner ─▶ listener
//
// Thread:  one. Accepted actions run on the main queue of the run's virtual time.
// Owner:   the run.
// Errors:  none.
#pragma once

#include "bindings/binding_store.h"
#include "dispatch/gesture_runtime.h"
#include "platform/virtual/virtual_time.h"
#include "recording/record.h"
#include "run_event.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace glidemap::replay {

class SimulatedClickTap;
class SimulatedWorkspace;

class SimulatedDesktop {
public:
    SimulatedDesktop(BindingList bindings, const VirtualTime& time,
                     const std::shared_ptr<TouchEngine>& engine, Listener listener);
    SimulatedDesktop(const SimulatedDesktop&) = delete;
    SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;

    void start() { runtime.start(); }
    void stop() { runtime.stop(); }

    // Returns the routing of the last gesture that the engine has delivered since the previous
    // call.
    std::optional<Routing> takeRouting() { return std::exchange(delivered, std::nullopt); }

    void change(const ButtonRecord& button);
    void activate(const FrontmostRecord& frontmost);

private:
    Routing route(GestureType gesture);
    void watch();
    ActionRunner::Ports simulatedPorts();
    void reportLaunch(const std::string& bundleID);

    const VirtualTime& time;
    Listener listener;
    std::shared_ptr<BindingStore> store;
    std::shared_ptr<SimulatedWorkspace> workspace;
    std::shared_ptr<SimulatedClickTap> tap;
    std::shared_ptr<GestureDispatcher> dispatcher;
    GestureRuntime runtime;
    std::optional<Routing> delivered;
    // The binding whose action runs next. At most one: the main queue is drained before the next
    // record, and a record delivers at most one gesture.
    std::shared_ptr<const GestureBinding> routed;
    // The click gesture of the latest button record, if a binding consumed it.
    std::optional<ButtonChanged::Click> consumedClick;
};

} // namespace glidemap::replay

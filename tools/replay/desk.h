// The program's own runtime for one run, between ports that report to the listener what the program asks of them. It looks at each
// gesture and click on its way to the dispatcher, to report which binding will be found.
//
//   gesture, click ─▶ dispatcher ─▶ main queue ─▶ action runner ─▶ listener
//
// Thread:  one. What is accepted runs with the main queue of the run's time.
// Owner:   the run.
// Errors:  none.
#pragma once

#include "bindings/binding_store.h"
#include "dispatch/gesture_runtime.h"
#include "happening.h"
#include "platform/virtual/virtual_time.h"
#include "pretended_ports.h"
#include "recording/record.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace glidemap::replay {

class Desk {
public:
    Desk(BindingList bindings, const VirtualTime& runTime,
         const std::shared_ptr<TouchEngine>& engine, Listener newListener);
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    void start() { runtime.start(); }
    void stop() { runtime.stop(); }

    // Of the last gesture that the engine has delivered since the last call.
    std::optional<Routing> takeRouting() { return std::exchange(delivered, std::nullopt); }

    void change(const ButtonRecord& button);
    void bringForward(const FrontmostRecord& frontmost);

private:
    Routing route(GestureType gesture);
    void watch();
    ActionRunner::Ports pretendedPorts();
    void tellLaunch(const std::string& bundleID);

    const VirtualTime& time;
    Listener listener;
    std::shared_ptr<BindingStore> store;
    std::shared_ptr<PretendedWorkspace> workspace;
    std::shared_ptr<PretendedClickTap> tap = std::make_shared<PretendedClickTap>();
    std::shared_ptr<GestureDispatcher> dispatcher;
    GestureRuntime runtime;
    std::optional<Routing> delivered;
    // The binding whose action runs next. There is never more than one: what a record makes the
    // main queue do is done before the next record, and a record delivers one gesture at most.
    std::shared_ptr<const GestureBinding> routed;
    std::optional<ButtonChanged::Click> taken; // by the press that is being decided
};

} // namespace glidemap::replay

// Where the gestures and clicks of a run arrive: the program's own store, dispatcher, action runner
// and click monitor, between ports that only tell what they were asked to do.
//
//   gesture ─▶ dispatcher ─────────────────────┐
//   button ──▶ click tap ─▶ monitor ─▶ dispatcher ─▶ main queue ─▶ action runner ─▶ listener
//
// Thread:  one. What is accepted runs with the main queue of the run's time.
// Owner:   the run.
// Errors:  none.
#pragma once

#include "bindings/binding_store.h"
#include "dispatch/click_monitor.h"
#include "dispatch/gesture_dispatcher.h"
#include "happening.h"
#include "platform/virtual/virtual_time.h"
#include "pretended_ports.h"
#include "recording/record.h"

#include <functional>
#include <memory>
#include <optional>

namespace glidemap::replay {

class Desk {
public:
    Desk(BindingList bindings, const VirtualTime& runTime, std::function<int()> touchingCount,
         Listener newListener);
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    Routing handle(GestureType gesture);
    void change(const ButtonRecord& button);
    void bringForward(const FrontmostRecord& frontmost);

    bool doubleTapBindingExists(int fingerCount) const {
        return store->doubleTapBindingExists(fingerCount);
    }

private:
    Routing route(GestureType gesture);
    bool take(GestureType click);
    ActionRunner::Ports pretendedPorts();
    void tellLaunch(const std::string& bundleID);

    const VirtualTime& time;
    Listener listener;
    std::shared_ptr<BindingStore> store;
    std::shared_ptr<PretendedWorkspace> workspace;
    std::shared_ptr<PretendedClickTap> tap = std::make_shared<PretendedClickTap>();
    std::shared_ptr<GestureDispatcher> dispatcher;
    ClickMonitor monitor;
    // The binding whose action runs next. There is never more than one: what a record makes the
    // main queue do is done before the next record, and a record delivers one gesture at most.
    std::shared_ptr<const GestureBinding> routed;
    std::optional<ButtonChanged::Click> taken; // by the press that is being decided
};

} // namespace glidemap::replay

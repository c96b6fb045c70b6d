// Reports to the click tap whether a click could be consumed. This is the case only while the
// master switch is on and an enabled binding for a click exists, in any scope.
//
// Thread:  the main thread.
// Owner:   the program creates one beside the click monitor.
// Errors:  none.
#pragma once

#include "core/observable.h"
#include "dispatch/click_tap.h"
#include "dispatch/gesture_dispatcher.h"

#include <memory>
#include <optional>

namespace glidemap {

class ClickDemand {
public:
    // Notifies the tap immediately, and again whenever the result changes.
    ClickDemand(std::shared_ptr<GestureDispatcher> dispatcher, std::shared_ptr<ClickTap> tap);
    ClickDemand(const ClickDemand&) = delete;
    ClickDemand& operator=(const ClickDemand&) = delete;

private:
    void update();

    std::shared_ptr<GestureDispatcher> dispatcher;
    std::shared_ptr<ClickTap> tap;
    std::optional<bool> lastNotified;
    Subscription toDispatcher;
    Subscription toStore;
};

} // namespace glidemap

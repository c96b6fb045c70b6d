// Recognises a click with two, three or four fingers on the pad, offers it as a gesture, and
// consumes it if the callback accepts it.
//
//   press with 2, 3 or 4 fingers ─▶ onClickGesture ─┬▶ accepted: dropped with its release
//                                                   └▶ rejected: passes
//
// Any other press passes. A release is dropped if its button's last press was dropped.
//
// The dispatcher accepts a click if Glidemap is switched on, an enabled binding for it matches the
// frontmost application or is global, and the session is unlocked or the action locks it. It
// rejects every click while the main thread hangs: while an action or a log entry has waited for a
// second. On Linux, clicks can be dropped only on a grabbed touchpad
// (drivers/evdev/pad_interception.h). Touchpads are grabbed only while Glidemap is on and an
// enabled binding for a click exists (ClickDemand).
//
// Units:   button numbers as in the tap's events.
// Thread:  start(), stop() and isRunning() on the main thread. onClickGesture and the finger count
//          are called on the tap's thread; onClickGesture is set before start().
// Owner:   the program creates one. While it runs, the tap holds it weakly; its destructor removes
//          the tap.
// Errors:  if the tap cannot be created, the monitor is not running; start() may be called again.
#pragma once

#include "core/gesture_type.h"
#include "dispatch/click_tap.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_set>

namespace glidemap {

class ClickMonitor {
public:
    // `touchingCount` returns the number of fingers on the pad.
    ClickMonitor(std::shared_ptr<ClickTap> tap, std::function<int()> touchingCount);
    ClickMonitor(const ClickMonitor&) = delete;
    ClickMonitor& operator=(const ClickMonitor&) = delete;
    ~ClickMonitor();

    void start();

    // Keeps the list of buttons whose press was dropped: their releases are dropped even after the
    // next start.
    void stop();

    bool isRunning() const { return _isRunning; }

    // Returns whether the click is consumed.
    std::function<bool(GestureType)> onClickGesture;

private:
    ClickTap::Verdict decide(const ClickEvent& event);
    bool isConsumed() const;

    std::shared_ptr<ClickTap> tap;
    std::function<int()> touchingCount;
    std::unordered_set<std::int64_t> swallowUpForButton; // accessed only by the tap's callback
    bool _isRunning = false;
    std::shared_ptr<ClickMonitor*> lifetime; // held weakly by the tap's callback
};

} // namespace glidemap

// Tells a click with two, three or four fingers on the pad from all others, offers it as a gesture,
// and takes it out of the system's hands if somebody wants it.
//
//   press with 2, 3 or 4 fingers ─▶ onClickGesture ─▶ taken: dropped, and its release, too
//                                                  └▶ not:   passes
//   any other press passes. A release is dropped if its button's last press was.
//
// Units:   button numbers as in the tap's events.
// Thread:  start(), stop() and isRunning() on the main thread. onClickGesture and the count of
//          fingers are asked on the tap's thread; onClickGesture is set while the monitor does not
//          run.
// Owner:   the program makes one. While it runs the tap holds it weakly; its end removes the tap.
// Errors:  a tap that cannot be created leaves the monitor not running; start() may be tried again.
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
    // The function tells how many fingers touch the pad now.
    ClickMonitor(std::shared_ptr<ClickTap> clickTap, std::function<int()> touchingCount);
    ClickMonitor(const ClickMonitor&) = delete;
    ClickMonitor& operator=(const ClickMonitor&) = delete;
    ~ClickMonitor();

    void start();

    // A button whose press was dropped is remembered: its release is dropped after the next start.
    void stop();

    bool isRunning() const { return _isRunning; }

    // Answers whether it takes the click over.
    std::function<bool(GestureType)> onClickGesture;

private:
    ClickTap::Verdict decide(const ClickEvent& event);
    bool isTaken() const;

    std::shared_ptr<ClickTap> tap;
    std::function<int()> touchingCount;
    std::unordered_set<std::int64_t> swallowUpForButton; // by the tap's callback only
    bool _isRunning = false;
    std::shared_ptr<ClickMonitor*> life; // what the tap's callback holds weakly
};

} // namespace glidemap

// An event tap that receives the session's mouse events before all other taps and can swallow
// clicks.
//
// The system calls the tap on the main run loop in the common modes, so it also receives clicks
// while a menu or an alert is open. Watching costs almost nothing, so setNeeded() does not pause
// the tap.
//
// Units:   button numbers of Core Graphics: 0 left, 1 right.
// Thread:  the main thread, for calls and for the callback.
// Owner:   the program creates one for the click monitor. The destructor removes the tap from the
//          event stream.
// Errors:  as return values; without permission, the system creates no tap.
#pragma once

#include "dispatch/click_tap.h"
#include "platform/macos/core_foundation.h"

namespace glidemap {

class QuartzClickTap : public ClickTap {
public:
    QuartzClickTap() = default;
    ~QuartzClickTap() override;

    bool create(Callback callback) override;
    void setEnabled(bool enabled) override;
    void remove() override;
    void setNeeded(bool /*needed*/) override {}

    Verdict verdict(const ClickEvent& event) { return decide(event); }

private:
    Callback decide;
    Owned<CFMachPortRef> port;
    Owned<CFRunLoopSourceRef> source;
};

} // namespace glidemap

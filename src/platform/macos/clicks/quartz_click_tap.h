// Stands in the session's stream of mouse events, before every other tap, and may take events out.
//
// The system asks it on the main run loop, in each of its common modes, so that clicks are seen
// while a menu or an alert is open, too. It costs next to nothing while it only watches, and rests
// never.
//
// Thread:  the main thread, for its calls as for the callback.
// Owner:   the program makes one for the click monitor. Once it has gone the system calls no more.
// Errors:  as answers: without permission the system makes no tap.
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

    // What the callback answers for an event.
    Verdict verdict(const ClickEvent& event) { return decide(event); }

private:
    Callback decide;
    Owned<CFMachPortRef> port;
    Owned<CFRunLoopSourceRef> source;
};

} // namespace glidemap

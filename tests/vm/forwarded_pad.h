// A touchpad whose clicks are filtered, with readers of the touchpad and of its clone.
//
//   pad ──▶ driver ──▶ clone ──▶ readClone()
//    └──▶ other readers, while it is not grabbed
//
// Thread:  a test's.
// Owner:   a test.
// Errors:  a device that does not appear in time fails the test.
#pragma once

#include "click_filter_session.h"
#include "driver_session.h"
#include "event_reader.h"
#include "ordinary_pad.h"
#include "virtual_pad.h"

#include <linux/input-event-codes.h>

#include <memory>
#include <vector>

namespace glidemap::test {

inline constexpr PadEvent leftDown{EV_KEY, BTN_LEFT, 1};
inline constexpr PadEvent leftUp{EV_KEY, BTN_LEFT, 0};
inline constexpr PadEvent markerUp{EV_KEY, BTN_MIDDLE, 0};

bool contains(const std::vector<ReadFrame>& frames, const PadEvent& event);

// Returns the events of all frames except the marker button's frames.
std::vector<EventFrame> framesWithoutMarker(const std::vector<ReadFrame>& frames);

class ForwardedPad {
public:
    explicit ForwardedPad(PadShape shape = ordinaryPad());

    // Switches the filter on, waits for the clone and opens it. Returns when the clone is ready or
    // has failed.
    void switchOn();
    // Opens a clone that the driver creates without a call to switchOn().
    void readNewClone();
    void switchOff();

    // Returns all events of the clone up to the last event that was written to the touchpad.
    std::vector<ReadFrame> readClone();

    VirtualPad pad;
    DriverSession session;
    ClickFilterSession filter{session};
    EventReader others{pad.node()};
    std::unique_ptr<EventReader> clone; // set by readNewClone()
};

} // namespace glidemap::test

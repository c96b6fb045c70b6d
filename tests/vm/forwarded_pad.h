// A touchpad whose clicks are filtered, with those who listen to it and to its clone.
//
//   pad ──▶ driver ──▶ clone ──▶ readClone()
//    └──▶ other readers, while it is not grabbed
//
// Thread:  a test's.
// Owner:   a test.
// Errors:  failures of the test.
#pragma once

#include "click_filter_session.h"
#include "driver_session.h"
#include "event_reader.h"
#include "ordinary_pad.h"
#include "virtual_pad.h"

#include <linux/input-event-codes.h>

#include <memory>
#include <vector>

namespace glidemap::vm {

inline constexpr PadEvent leftDown{EV_KEY, BTN_LEFT, 1};
inline constexpr PadEvent leftUp{EV_KEY, BTN_LEFT, 0};
inline constexpr PadEvent markerUp{EV_KEY, BTN_MIDDLE, 0};

bool contains(const std::vector<ReadFrame>& frames, const PadEvent& event);

// The events of all frames but for those of the marker.
std::vector<EventFrame> framesWithoutMarker(const std::vector<ReadFrame>& frames);

class ForwardedPad {
public:
    explicit ForwardedPad(PadShape shape = ordinaryPad());

    // Returns when the driver has done what there was to do about it, and a clone that it has
    // made is read.
    void switchOn();
    // The same for a clone that it makes by itself.
    void readNewClone();
    void switchOff();

    // Everything that the clone has said until the driver had read what was written to the pad.
    std::vector<ReadFrame> readClone();

    VirtualPad pad;
    DriverSession session;
    ClickFilterSession filter{session};
    EventReader others{pad.node()};
    std::unique_ptr<EventReader> clone; // once it was switched on
};

} // namespace glidemap::vm

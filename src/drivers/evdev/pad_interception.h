// Stands between one touchpad and the system while clicks are filtered: grabs the touchpad and says
// on a clone of it what it says, less the button changes that the filter drops; while a dropped press
// is held its fingers are palms there.
//
//   passing ──neutral──▶ forwarding ──neutral──▶ passing        neutral: no finger is down, no key
//      ▲  a clone is made first  │  when it is not wanted any more
//      └──────── at once ────────┘  the clone cannot be written, the driver stops, it came to a stall
//
// A touch belongs to those who saw it begin. What was touched before the grab took effect was seen
// by everybody: the touchpad is given back until that touch is over. What came later is forwarded.
//
// Thread:  under the driver's lock. add(), endFrame(), settle() and lose() on the reader's thread.
// Owner:   PadConnection, beside the pad.
// Errors:  a touchpad that cannot be cloned or grabbed is let alone: the one is tried again when the
//          filter is switched on again, the other at the next neutral moment.
#pragma once

#include "drivers/evdev/click_interception.h"
#include "drivers/evdev/clone_writer.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/pad_state.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace glidemap {

class PadInterception {
public:
    PadInterception(driver::Device itsDevice, OpenPad& itsPad, ClickInterception& allClicks);
    PadInterception(const PadInterception&) = delete;
    PadInterception& operator=(const PadInterception&) = delete;
    ~PadInterception();

    // Every event of the touchpad, in order, but for synchronisations.
    void add(const InputEvent& event);

    // The synchronisation, after the contacts of the frame were reported. The filter may come back
    // to the driver and stop this touchpad.
    void endFrame(double time);

    // Everything that there was is read: takes the touchpad or gives it back, if that is due.
    void settle();

    // Gives the touchpad back for good, whatever touches it.
    void end();

    // The same for one that is gone, whose buttons therefore are up.
    void lose();

    // It is forwarded, and not neutral.
    bool isTouched() const { return isForwarding() && !source.isNeutral(); }

private:
    bool isForwarding() const { return grabbedAt.has_value(); }
    bool stillHoldsPad();
    void forwardFrame(double time);
    void judgeButtons();
    void makeClone();
    void take();
    void letPadGo();
    void giveBack();

    const driver::Device device;
    OpenPad& pad;
    ClickInterception& clicks;

    PadState source;
    std::int32_t slotBefore = 0;       // the one that the frame begins in
    std::vector<InputEvent> frame;     // what is to be forwarded of it
    std::optional<CloneWriter> writer; // before the touchpad is grabbed, too
    std::optional<double> grabbedAt;
    bool ended = false;
    unsigned failedAttempt = 0; // the one in which there was no clone to be had
};

} // namespace glidemap

// Stands between one touchpad and the system while clicks are filtered: grabs the touchpad and says
// on a clone of it what it says, less the button changes that the filter drops; while a dropped press
// is held its fingers are palms there.
//
//   passing ──wanted──▶ introducing ──ready, neutral──▶ forwarding ──neutral──▶ leaving ──▶ passing
//      ▲  a clone is made   │ not in time       │  when it is not wanted any more   │  a second later
//      ├────────────────────┘                   │                     wanted again: forwarding
//      └──────────── at once ───────────────────┘
//         the clone cannot be written, the driver stops, it came to a stall
//
// neutral: no finger is down, no key is pressed. ready: see CloneIntroduction.
//
// A touch belongs to those who saw it begin. What was touched before the grab took effect was seen
// by everybody: the touchpad is given back until that touch is over. What came later is forwarded.
// So is what came before the touchpad was really given back: it is taken again for that touch.
//
// While it leaves, the clone is silent: a program may not have read yet what it said last, and what a
// device that is gone has said is lost.
//
// Thread:  under the driver's lock. add(), endFrame(), settle() and lose() on the reader's thread.
// Owner:   PadConnection, beside the pad.
// Errors:  a touchpad that cannot be cloned or grabbed is let alone. Where there was no clone, or no
//          program took it up, the next one is made when the filter is switched on again, or at a
//          neutral moment ten seconds later, then after twice that time, and so on. A touchpad that
//          cannot be grabbed is tried at the next neutral moment.
#pragma once

#include "drivers/evdev/click_interception.h"
#include "drivers/evdev/clone_introduction.h"
#include "drivers/evdev/clone_writer.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/pad_state.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace glidemap {

class PadInterception {
public:
    using Moment = ClickInterception::Moment;

    // How long a clone that is not wanted any more stays for its readers.
    static constexpr std::chrono::seconds leaveTaking{1};
    // Before a touchpad without a clone is tried again; doubled each time.
    static constexpr std::chrono::seconds firstPause{10};
    static constexpr std::chrono::seconds maxPause{600};

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

    // When settle() has something to do although the touchpad says nothing.
    std::optional<Moment> nextLook() const;

    // Its clone is new: settle() has something to do when the standing of clones changes.
    bool isIntroducing() const { return introduction.has_value(); }

    // Why the touchpad is not taken although it should be, for a log; null if it may be.
    const char* obstacle() const { return isIntroducing() ? driver::cloneIsNew : reason; }

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
    void takeAgainFor(double time);
    void judgeButtons();
    void prepareClone();
    void makeClone();
    void introduceClone();
    void abandonClone(const char* obstacle);
    void dropClone();
    bool grab();
    void letPadGo();
    void leave();
    void giveBack();

    const driver::Device device;
    OpenPad& pad;
    ClickInterception& clicks;

    PadState source;
    std::int32_t slotBefore = 0;       // the one that the frame begins in
    std::vector<InputEvent> frame;     // what is to be forwarded of it
    std::optional<CloneWriter> writer; // before the touchpad is grabbed, too
    std::optional<CloneIntroduction> introduction;
    std::optional<double> grabbedAt;
    std::optional<double> givenBackAt; // what is older was heard here only
    std::optional<Moment> leaveAt;     // when the clone goes
    bool ended = false;

    unsigned failedAttempt = 0; // the one in which there was no clone to be had
    Moment retryAt;
    std::chrono::seconds pause = firstPause;
    const char* reason = nullptr;
};

} // namespace glidemap

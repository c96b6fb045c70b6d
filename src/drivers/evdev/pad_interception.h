// Forwards one touchpad while clicks are filtered: grabs it and writes its events to a clone,
// without the button changes that the filter drops. While a dropped press is held, the clone
// reports the fingers as palms.
//
//   passing ──wanted──▶ introducing ──ready, neutral──▶ forwarding ──neutral──▶ leaving ──▶ passing
//      ▲  makes a clone     │ not in time       │  when it is not wanted any more   │  a second later
//      ├────────────────────┘                   │                     wanted again: forwarding
//      └──────────── at once ───────────────────┘
//         the clone cannot be written, the driver stops, forwarding stalled
//
// neutral: no finger is down and no key is pressed. ready: see CloneIntroduction.
//
// A touch belongs to the programs that saw its beginning. Other programs saw a touch that began
// before the grab took effect, so the touchpad is given back until that touch is over. A later
// touch is forwarded. A touch that began just before the touchpad was given back is forwarded too:
// the driver grabs the touchpad again.
//
// While it leaves, the clone is silent: a program may not have read its last events yet, and the
// kernel discards the events of a removed device.
//
// Thread:  under the driver's lock. add(), endFrame(), settle() and lose() on the reader's thread.
// Owner:   PadConnection, beside the pad.
// Errors:  a touchpad that cannot be cloned or grabbed keeps working without the filter. If the
//          clone fails or no program opens it, the driver retries when the filter is switched on
//          again. It also retries at a neutral moment ten seconds later; each failure doubles that
//          pause. If the grab fails, the driver retries at the next neutral moment.
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

    // How long an unwanted clone stays for its readers.
    static constexpr std::chrono::seconds cloneRetention{1};
    // The delay before a touchpad is cloned again; it doubles each time.
    static constexpr std::chrono::seconds firstPause{10};
    static constexpr std::chrono::seconds maxPause{600};

    PadInterception(driver::Device itsDevice, OpenPad& itsPad, ClickInterception& allClicks);
    PadInterception(const PadInterception&) = delete;
    PadInterception& operator=(const PadInterception&) = delete;
    ~PadInterception();

    // Receives every event of the touchpad in order, except SYN_REPORT.
    void add(const InputEvent& event);

    // Receives the SYN_REPORT, after the contacts of the frame were reported. The filter may call
    // the driver and stop this touchpad.
    void endFrame(double time);

    // Called when all pending events are read: grabs the touchpad or gives it back, if that is due.
    void settle();

    // When settle() must be called even without an event of the touchpad.
    std::optional<Moment> nextLook() const;

    // The clone is new: call settle() when the progress of clones changes.
    bool isIntroducing() const { return introduction.has_value(); }

    // Why the touchpad is not grabbed although it should be, for a log; null if nothing prevents
    // it.
    const char* obstacle() const { return isIntroducing() ? driver::cloneIsNew : reason; }

    // Gives the touchpad back for good, even while a finger touches it.
    void end();

    // Like end(), for a touchpad that is gone. Its buttons are up.
    void lose();

    bool isTouched() const { return isForwarding() && !source.isNeutral(); }

private:
    bool isForwarding() const { return grabbedAt.has_value(); }
    bool stillHoldsPad();
    void forwardFrame(double time);
    void grabAgain(double time);
    void filterButtons();
    bool repeatsButton(const InputEvent& event) const;
    bool needsMissingSlot(const InputEvent& event) const;
    void prepareClone();
    void makeClone();
    void introduceClone();
    void abandonClone(const char* obstacle);
    void dropClone();
    bool grab();
    void ungrabPad();
    void leave();
    void giveBack();

    const driver::Device device;
    OpenPad& pad;
    ClickInterception& clicks;

    PadState source;
    std::int32_t slotBefore = 0;       // the slot at the beginning of the frame
    std::vector<InputEvent> frame;     // the events of the frame that may be forwarded
    std::optional<CloneWriter> writer; // exists before the touchpad is grabbed
    std::optional<CloneIntroduction> introduction;
    std::optional<double> grabbedAt;
    std::optional<double> givenBackAt; // no other program received older events
    std::optional<Moment> leaveAt;     // when to remove the clone
    bool ended = false;

    unsigned failedAttempt = 0; // the attempt in which making a clone failed
    Moment retryAt;
    std::chrono::seconds pause = firstPause;
    const char* reason = nullptr;
};

} // namespace glidemap

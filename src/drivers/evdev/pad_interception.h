// Forwards one touchpad while clicks are filtered: grabs the touchpad and writes its events to a
// clone, except the button changes that the filter drops. While a dropped press is held, the clone
// reports the fingers as palms.
//
//   passing ──wanted──▶ introducing ──ready, neutral──▶ forwarding ──neutral──▶ leaving ──▶ passing
//      ▲  makes a clone     │ not in time       │  when it is not wanted any more   │  a second later
//      ├────────────────────┘                   │                     wanted again: forwarding
//      └──────────── at once ───────────────────┘
//         the clone cannot be written, the driver stops, forwarding stalled
//
// wanted: a filter is set and switched on, the touchpad has a left or right button, and the process
//         is not being stopped. A clone can be made only for a touchpad on the first seat, and only
//         with permission to write to /dev/uinput.
// ready: udev has announced the clone, and a program has opened it and has had time to prepare for
//        its events (CloneIntroduction); at most two clones are new at a time
// neutral: no finger is down, no key is pressed, and all events have been read
//
// A program that received the beginning of a touch must also receive the rest of it. If a touch
// began before the grab took effect, the driver releases the touchpad immediately, and grabs it
// when that touch has ended. If a touch begins before the release takes effect, the driver keeps
// the grab or grabs the touchpad again, and forwards the touch.
//
// A clone in the state "leaving" sends no events. It exists for another second, because the kernel
// discards unread events when a device is removed.
//
// Thread:  under the driver's lock. add(), endFrame(), settle() and disconnect() on the reader's
//          thread.
// Owner:   PadConnection, beside the pad.
// Errors:  a touchpad that cannot be cloned or grabbed keeps working without the filter. If
//          creating the clone fails or no program opens it, the driver retries when the filter is
//          switched on again, or at the first neutral moment after a delay. The delay is one second
//          at first, and each failure doubles it. If the grab fails, the driver retries at the next
//          neutral moment.
#pragma once

#include "drivers/evdev/click_interception.h"
#include "drivers/evdev/clone_introduction.h"
#include "drivers/evdev/clone_writer.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/pad_state.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace glidemap {

class PadInterception {
public:
    using Moment = ClickInterception::Moment;

    // How long an unused clone exists, so that programs can read its last events.
    static constexpr std::chrono::seconds cloneRetention{1};
    // The delay before the driver creates another clone after a failure. Each failure doubles it.
    // The first delay is short, because the driver may have missed that a program opened the clone.
    static constexpr std::chrono::seconds firstPause{1};
    static constexpr std::chrono::seconds maxPause{600};

    PadInterception(driver::Device device, OpenPad& pad, ClickInterception& clicks);
    PadInterception(const PadInterception&) = delete;
    PadInterception& operator=(const PadInterception&) = delete;
    ~PadInterception();

    // Receives every event of the touchpad in order. After a SYN_REPORT, which this function
    // ignores, the caller must call endFrame().
    void add(const InputEvent& event);

    // Call this at a SYN_REPORT, after the contacts of the frame were reported. The filter may call
    // the driver and stop this touchpad.
    void endFrame(double time);

    // Call this when all pending events have been read. Grabs or releases the touchpad if
    // necessary.
    void settle();

    // Returns the time at which settle() must be called even if the touchpad sends no event.
    std::optional<Moment> nextLook() const;

    // Returns whether the clone is new. If so, call settle() when the clone watch reports a change.
    bool isIntroducing() const { return introduction.has_value(); }

    // Returns the reason why the touchpad is not grabbed although it should be, for a log. Returns
    // null if no such reason exists.
    const char* obstacle() const { return isIntroducing() ? driver::cloneIsNew : reason; }

    // Permanently releases the touchpad, even while a finger touches it.
    void end();

    // Like end(), for a touchpad that is gone. Its buttons count as released.
    void disconnect();

    bool isTouched() const { return isForwarding() && !source.isNeutral(); }

private:
    // The state of the touchpad at a grab.
    enum class GrabMoment { betweenTouches, duringTouch };

    bool isForwarding() const { return grabbedAt.has_value(); }
    bool stillGrabsPad();
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
    bool grab(GrabMoment moment);
    void ungrab(const std::function<bool()>& release);
    void ungrabPad();
    void leave();
    void giveBack();

    const driver::Device device;
    OpenPad& pad;
    ClickInterception& clicks;

    PadState source;
    std::int32_t slotBefore = 0;       // the current slot at the beginning of the frame
    std::vector<InputEvent> frame;     // those events of the frame that may be forwarded
    std::optional<CloneWriter> writer; // owns the clone
    std::optional<CloneIntroduction> introduction;
    std::optional<double> grabbedAt;
    std::optional<double> releasedAt; // the end of the last grab, until a later frame
    std::optional<Moment> leaveAt;    // when to remove the clone
    bool ended = false;

    unsigned failedAttempt = 0; // the value of attempt() when cloning last failed
    Moment retryAt;
    std::chrono::seconds pause = firstPause;
    const char* reason = nullptr;
};

} // namespace glidemap

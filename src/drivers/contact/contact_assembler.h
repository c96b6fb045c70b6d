// Turns a touchpad's kernel events (multitouch protocol B: slots and tracking ids) into contact
// records, one report for each synchronisation. The evdev driver and the readers of foreign
// recordings share it, so that a recording means the same as the pad it was made on.
//
//   state of a record:   3 makes touch ──▶ 4 touching
//                              ▲               │            ──▶ 7 has left, in one last report
//                              └── 2 hovers ◀──┘                (from any of the three)
//                                  or is a palm
//
// Allocates nothing after construction.
//
// Units:   event times in seconds; records as in input/mt_touch.h, millimetres in `absolute` where
//          the resolution is known.
// Thread:  one; holds no lock.
// Owner:   one for each touchpad.
// Errors:  none; impossible events (slots that do not exist, values outside the range) are ignored
//          or clamped.
#pragma once

#include "drivers/contact/contact_geometry.h"
#include "drivers/contact/contact_identifiers.h"
#include "drivers/contact/missing_fingers.h"
#include "drivers/contact/pad_description.h"
#include "input/mt_touch.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace glidemap {

// A kernel input event.
struct InputEvent {
    double time = 0;
    std::uint16_t type = 0;
    std::uint16_t code = 0;
    std::int32_t value = 0;
};

// A physical button of the pad: 0 left, 1 right, 2 middle.
struct ButtonChange {
    std::int32_t button = 0;
    bool down = false;

    friend bool operator==(const ButtonChange&, const ButtonChange&) = default;
};

// What one synchronisation brought. Valid until the next event is handled.
struct PadFrame {
    double timestamp = 0;
    bool contactsChanged = false; // otherwise there is nothing to report
    std::span<const MTTouch> contacts;
    std::span<const ButtonChange> buttons;
    std::int32_t number = 0; // counts the reports
};

class ContactAssembler {
public:
    explicit ContactAssembler(const PadDescription& pad);

    // Not null when the event ends a frame, that is at each synchronisation.
    const PadFrame* handle(const InputEvent& event);

    // The pad is gone: every contact has left and every button is up. The frame's report, if there
    // is anything to report, is an empty one. The next contact starts afresh, on slots that hold
    // nothing.
    const PadFrame& release(double time);

private:
    struct Slot {
        SlotValues values;
        bool down = false;
        bool begun = false;   // its contact has not been reported yet
        bool changed = false; // since the last report
        bool leaving = false; // the contact of the last report is over
        MTTouch record{};     // as last reported; identifier 0: none was
        MTPoint shift{};      // from where the pad sees the contact to where it is reported
    };

    void handleAbsolute(std::uint16_t code, std::int32_t value);
    void handleKey(std::uint16_t code, bool down);
    void changeButton(std::size_t button, bool down);
    Slot* currentSlot();
    static void setTrackingId(Slot& slot, std::int32_t trackingId);
    static void setValue(Slot& slot, std::uint16_t code, std::int32_t value);

    const PadFrame* synchronise(double time);
    std::size_t countedFingers() const;
    std::size_t reportedFingers() const;
    std::size_t missingFingers() const;
    bool anythingReported() const;
    bool contactsChanged(std::size_t missing) const;

    void report(double time, std::size_t missing);
    void keepFingersWithoutSlot(std::size_t missing);
    void reportLeaving(std::size_t missing, double time);
    void reportPresent(double time, std::size_t missing, bool cornersMoved);
    void update(Slot& slot, std::size_t index, double time, bool keepPlace);

    PadDescription pad;
    std::vector<Slot> slots;
    std::int32_t slotNumber = 0;
    bool eventsLost = false; // nothing counts until the next synchronisation

    std::uint32_t toolKeys = 0; // bit n: the key that announces n fingers is down
    std::size_t fingersBefore = 0;
    std::array<bool, 3> buttonDown{};

    MissingFingers standIns;
    ContactIdentifiers identifiers;
    std::uint32_t frameNumber = 0;

    // What is handed out.
    PadFrame frame;
    bool frameIsOut = false;
    std::vector<MTTouch> records;
    std::vector<ButtonChange> buttons;
};

} // namespace glidemap

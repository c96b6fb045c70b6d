// Converts a touchpad's kernel events (multitouch protocol B: slots and tracking ids) to contact
// records. Each SYN_REPORT completes a frame, which reports the contacts if they have changed. The
// evdev driver and the readers of evemu and libinput recordings share this class, so a recording
// yields the same contacts as the touchpad did.
//
//   state of a record:   3 makes touch ──▶ 4 touching
//                              ▲               │            ──▶ 7 has left, in one last report
//                              └── 2 hovers ◀──┘                (from any of the three)
//                                  or is a palm
//
// Allocates nothing after construction.
//
// Units:   event times in seconds; records as in input/mt_touch.h. Positions in `absolute` are in
//          millimetres, or 0 if the resolution is unknown.
// Thread:  one; holds no lock.
// Owner:   one for each touchpad.
// Errors:  none; impossible events (invalid slots, values out of range) are ignored or clamped.
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

struct InputEvent {
    double time = 0;
    std::uint16_t type = 0;
    std::uint16_t code = 0;
    std::int32_t value = 0;
};

// A press or release of a physical button: 0 left, 1 right, 2 middle.
struct ButtonChange {
    std::int32_t button = 0;
    bool down = false;

    friend bool operator==(const ButtonChange&, const ButtonChange&) = default;
};

// The result of one SYN_REPORT or of release(). Valid until the next call of handle() or release().
struct PadFrame {
    double timestamp = 0;
    // If false, `contacts` is empty but must not be reported, because an empty report would end all
    // contacts.
    bool contactsChanged = false;
    std::span<const MTTouch> contacts;
    std::span<const ButtonChange> buttons;
    std::int32_t number = 0; // increases with each report of contacts
};

class ContactAssembler {
public:
    explicit ContactAssembler(const PadDescription& pad);

    // Returns a frame if the event completes one (a SYN_REPORT), or else null.
    const PadFrame* handle(const InputEvent& event);

    // Call this when the touchpad is gone. Ends all contacts, releases all buttons and clears the
    // slots. The frame contains an empty report if any contact had been reported.
    const PadFrame& release(double time);

private:
    struct Slot {
        SlotValues values;
        bool down = false;
        bool begun = false;   // the contact is new and has not been reported yet
        bool changed = false; // the values have changed since the last report
        bool leaving = false; // the reported contact has ended; its end is not reported yet
        MTTouch record{};     // the last report; before the first one, the identifier is 0
        MTPoint shift{};      // added to the position from the pad before it is reported
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
    bool hasReportedContacts() const;
    bool contactsChanged(std::size_t missing) const;

    void report(double time, std::size_t missing);
    void keepFingersWithoutSlot(std::size_t missing);
    void reportLeaving(std::size_t missing, double time);
    void reportPresent(double time, std::size_t missing, bool cornersMoved);
    void update(Slot& slot, std::size_t index, double time, bool keepPlace);

    PadDescription pad;
    std::vector<Slot> slots;
    std::int32_t slotNumber = 0;
    bool eventsLost = false; // ignore events until the next SYN_REPORT

    std::uint32_t toolKeys = 0; // bit n: the key that announces n fingers is down
    std::size_t fingersBefore = 0;
    std::array<bool, 3> buttonDown{};

    MissingFingers standIns;
    ContactIdentifiers identifiers;
    std::uint32_t frameNumber = 0;

    PadFrame frame;
    bool isFrameHandedOut = false;
    std::vector<MTTouch> records;
    std::vector<ButtonChange> buttons;
};

} // namespace glidemap

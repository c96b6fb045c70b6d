#include "drivers/contact/contact_assembler.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <bit>

namespace glidemap {

namespace {

// Ten times as many slots as any real touchpad has. If an invalid description has more, the
// additional slots are ignored.
constexpr std::int32_t maxSlots = 256;

// A button may go down and up, or up and down, between two SYN_REPORTs. If a broken device sends
// more changes, pairs of opposite changes are left out.
constexpr std::ptrdiff_t maxButtonChanges = 2;

// Returns the number of fingers that a BTN_TOOL key announces, or 0 for other keys.
unsigned fingersAnnouncedBy(std::uint16_t code) {
    switch (code) {
    case BTN_TOOL_FINGER:
        return 1;
    case BTN_TOOL_DOUBLETAP:
        return 2;
    case BTN_TOOL_TRIPLETAP:
        return 3;
    case BTN_TOOL_QUADTAP:
        return 4;
    case BTN_TOOL_QUINTTAP:
        return 5;
    default:
        return 0;
    }
}

std::int32_t* valueOf(SlotValues& values, std::uint16_t code) {
    switch (code) {
    case ABS_MT_POSITION_X:
        return &values.x;
    case ABS_MT_POSITION_Y:
        return &values.y;
    case ABS_MT_PRESSURE:
        return &values.pressure;
    case ABS_MT_TOUCH_MAJOR:
        return &values.touchMajor;
    case ABS_MT_TOUCH_MINOR:
        return &values.touchMinor;
    case ABS_MT_ORIENTATION:
        return &values.orientation;
    case ABS_MT_DISTANCE:
        return &values.distance;
    case ABS_MT_TOOL_TYPE:
        return &values.toolType;
    default:
        return nullptr;
    }
}

} // namespace

ContactAssembler::ContactAssembler(const PadDescription& description)
    : pad(description), slots(static_cast<std::size_t>(std::clamp(pad.slotCount, 0, maxSlots))),
      standIns(description) {
    // One frame may report two contacts for each slot and each stand-in: one that leaves and a new
    // one.
    records.reserve(2 * (slots.size() + MissingFingers::maxFingers));
    buttons.reserve(buttonDown.size() * maxButtonChanges);
}

const PadFrame* ContactAssembler::handle(const InputEvent& event) {
    if (isFrameHandedOut) {
        isFrameHandedOut = false;
        buttons.clear();
    }
    if (event.type == EV_SYN && event.code == SYN_REPORT) {
        eventsLost = false;
        return synchronise(event.time);
    }
    if (event.type == EV_SYN && event.code == SYN_DROPPED) {
        eventsLost = true;
    }
    if (eventsLost) {
        return nullptr;
    }
    if (event.type == EV_ABS) {
        handleAbsolute(event.code, event.value);
    } else if (event.type == EV_KEY) {
        handleKey(event.code, event.value != 0);
    }
    return nullptr;
}

void ContactAssembler::handleAbsolute(std::uint16_t code, std::int32_t value) {
    if (code == ABS_MT_SLOT) {
        slotNumber = value;
        return;
    }
    Slot* slot = currentSlot();
    if (slot == nullptr) {
        return;
    }
    if (code == ABS_MT_TRACKING_ID) {
        setTrackingId(*slot, value);
    } else {
        setValue(*slot, code, value);
    }
}

ContactAssembler::Slot* ContactAssembler::currentSlot() {
    // A negative number converts to an index beyond the last slot.
    const auto index = static_cast<std::size_t>(slotNumber);
    return index < slots.size() ? &slots[index] : nullptr;
}

// A contact whose tracking id changes while it is down continues as the same finger, because only
// faulty kernel drivers send such a change.
void ContactAssembler::setTrackingId(Slot& slot, std::int32_t trackingId) {
    const bool down = trackingId >= 0;
    if (down == slot.down) {
        return;
    }
    slot.down = down;
    if (down) {
        slot.begun = true;
    } else {
        // A contact that was never reported needs no end report.
        slot.leaving = slot.leaving || !slot.begun;
        slot.begun = false;
    }
}

void ContactAssembler::setValue(Slot& slot, std::uint16_t code, std::int32_t value) {
    std::int32_t* held = valueOf(slot.values, code);
    if (held != nullptr && *held != value) {
        *held = value;
        slot.changed = true;
    }
}

void ContactAssembler::handleKey(std::uint16_t code, bool down) {
    if (const unsigned fingers = fingersAnnouncedBy(code); fingers != 0) {
        const std::uint32_t bit = 1U << fingers;
        toolKeys = down ? toolKeys | bit : toolKeys & ~bit;
    } else if (code >= BTN_LEFT && code <= BTN_MIDDLE) {
        changeButton(code - BTN_LEFT, down);
    }
}

void ContactAssembler::changeButton(std::size_t button, bool down) {
    if (buttonDown[button] == down) {
        return;
    }
    buttonDown[button] = down;
    const auto number = static_cast<std::int32_t>(button);
    if (std::ranges::count(buttons, number, &ButtonChange::button) < maxButtonChanges) {
        buttons.push_back({number, down});
        return;
    }
    // This change reverts the previous change of the same button. Removing the previous change has
    // the same effect as adding this one.
    const auto last =
        std::ranges::find(buttons.rbegin(), buttons.rend(), number, &ButtonChange::button);
    buttons.erase(std::next(last).base());
}

std::size_t ContactAssembler::countedFingers() const {
    return toolKeys == 0 ? 0 : static_cast<std::size_t>(std::bit_width(toolKeys)) - 1;
}

std::size_t ContactAssembler::reportedFingers() const {
    return static_cast<std::size_t>(std::ranges::count_if(
        slots, [](const Slot& slot) { return slot.down && slot.values.distance <= 0; }));
}

// A pad's finger count is used only if the pad cannot report all fingers, because it has fewer
// slots or reports a bounding box. On other pads the slots are correct, and a different count is
// late or wrong.
std::size_t ContactAssembler::missingFingers() const {
    const std::size_t counted = countedFingers();
    const std::size_t reported = reportedFingers();
    const bool doesNotReportAll = pad.semiMultitouch || counted > slots.size();
    if (!doesNotReportAll || reported == 0 || counted <= reported) {
        return 0;
    }
    return counted - reported;
}

bool ContactAssembler::hasReportedContacts() const {
    return standIns.count() > 0 ||
           std::ranges::any_of(slots, [](const Slot& slot) { return slot.record.identifier != 0; });
}

bool ContactAssembler::contactsChanged(std::size_t missing) const {
    return missing != standIns.count() || std::ranges::any_of(slots, [](const Slot& slot) {
               return slot.leaving || slot.begun || (slot.down && slot.changed);
           });
}

const PadFrame* ContactAssembler::synchronise(double time) {
    const std::size_t missing = missingFingers();
    records.clear();
    frame.timestamp = time;
    frame.contactsChanged = contactsChanged(missing);
    if (frame.contactsChanged) {
        ++frameNumber;
        report(time, missing);
    }
    frame.contacts = records;
    frame.buttons = buttons;
    frame.number = static_cast<std::int32_t>(frameNumber);
    isFrameHandedOut = true;
    return &frame;
}

void ContactAssembler::report(double time, std::size_t missing) {
    // On a pad that reports the corners of a bounding box, a landing or lifting finger moves the
    // contacts although no finger has moved.
    const std::size_t fingers = std::max(countedFingers(), reportedFingers());
    const bool cornersMoved = pad.semiMultitouch && fingers != fingersBefore;
    fingersBefore = fingers;

    keepFingersWithoutSlot(missing);
    reportLeaving(missing, time);
    reportPresent(time, missing, cornersMoved);
}

// Keeps the fingers that the pad still counts although their contacts have ended or their slots
// have new contacts.
void ContactAssembler::keepFingersWithoutSlot(std::size_t missing) {
    for (Slot& slot : slots) {
        if (slot.leaving && standIns.count() < missing) {
            standIns.adopt(slot.record);
            slot.leaving = false;
            slot.record = {};
        }
    }
}

void ContactAssembler::reportLeaving(std::size_t missing, double time) {
    const auto leave = [&](MTTouch record) {
        record.frame = static_cast<std::int32_t>(frameNumber);
        record.timestamp = time;
        record.state = static_cast<std::int32_t>(MTTouchState::outOfRange);
        record.normalized.vel = {};
        record.absolute.vel = {};
        records.push_back(record);
    };
    for (Slot& slot : slots) {
        if (slot.leaving) {
            leave(slot.record);
            slot.leaving = false;
            slot.record = {};
        }
        const bool slotForStandIn = slot.begun && standIns.count() > missing;
        if (slotForStandIn) {
            slot.record = *standIns.takeStandIn();
            slot.shift = {};
        }
    }
    while (const auto record = standIns.removeBeyond(missing)) {
        leave(*record);
    }
}

void ContactAssembler::reportPresent(double time, std::size_t missing, bool cornersMoved) {
    const std::size_t first = records.size();
    for (std::size_t index = 0; index < slots.size(); ++index) {
        Slot& slot = slots[index];
        if (slot.down) {
            const bool takesOver = slot.begun && slot.record.identifier != 0;
            update(slot, index, time, takesOver || (cornersMoved && !slot.begun));
            records.push_back(slot.record);
        }
        slot.changed = false;
        slot.begun = false;
    }
    standIns.update(std::span(records).subspan(first), missing, identifiers);
    for (std::size_t index = 0; index < standIns.count(); ++index) {
        records.push_back(standIns.record(index));
    }
}

void ContactAssembler::update(Slot& slot, std::size_t index, double time, bool keepPlace) {
    const MTTouch before = slot.record;
    const bool isNew = before.identifier == 0;
    MTTouch record{};
    record.frame = static_cast<std::int32_t>(frameNumber);
    record.timestamp = time;
    record.identifier = isNew ? identifiers.next() : before.identifier;
    record.fingerID = static_cast<std::int32_t>(index);
    record.state = nextState(before.state, presses(pad, slot.values));
    describeContact(pad, slot.values, record);
    if (isNew) {
        slot.shift = {};
    } else if (keepPlace) {
        slot.shift = {before.normalized.pos.x - record.normalized.pos.x,
                      before.normalized.pos.y - record.normalized.pos.y};
    }
    translate(pad, slot.shift, record);
    if (!isNew) {
        describeVelocity(before, record);
    }
    slot.record = record;
}

const PadFrame& ContactAssembler::release(double time) {
    buttons.clear();
    for (std::size_t button = 0; button < buttonDown.size(); ++button) {
        changeButton(button, false);
    }
    frame.timestamp = time;
    frame.contactsChanged = hasReportedContacts();
    frameNumber += frame.contactsChanged ? 1 : 0;
    frame.contacts = {};
    frame.buttons = buttons;
    frame.number = static_cast<std::int32_t>(frameNumber);
    isFrameHandedOut = true;
    std::ranges::fill(slots, Slot{});
    standIns.clear();
    slotNumber = 0;
    eventsLost = false;
    toolKeys = 0;
    fingersBefore = 0;
    return frame;
}

} // namespace glidemap

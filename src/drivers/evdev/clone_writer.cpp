#include "drivers/evdev/clone_writer.h"

#include <linux/input.h>

#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// More events than any touchpad's frame contains.
constexpr std::size_t largeFrame = 256;

// Used for events that do not come from the touchpad: the kernel sets their time.
constexpr double timeOfWriting = 0;

bool isLanding(const InputEvent& event) {
    return event.type == EV_ABS && event.code == ABS_MT_TRACKING_ID && event.value >= 0;
}

} // namespace

CloneWriter::CloneWriter(std::unique_ptr<PadClone> clone, std::int32_t slotCount)
    : device(std::move(clone)), held(slotCount) {
    output.reserve(largeFrame);
    isMarked.resize(static_cast<std::size_t>(held.slotCount()));
}

bool CloneWriter::forward(std::span<const InputEvent> frame, std::int32_t slotBefore,
                          const PadState& source, double time) {
    if (!frame.empty()) {
        choose(slotBefore, time);
        for (const InputEvent& event : frame) {
            addEvent(event);
        }
        completeLandings(frame, slotBefore, source, time);
    }
    markContacts(source, time);
    return output.empty() || writeFrame(time);
}

void CloneWriter::addEvent(const InputEvent& event) {
    held.apply(event);
    output.push_back(event);
}

void CloneWriter::completeLandings(std::span<const InputEvent> frame, std::int32_t slotBefore,
                                   const PadState& source, double time) {
    std::int32_t slot = slotBefore;
    bool landed = false;
    for (const InputEvent& event : frame) {
        if (event.type == EV_ABS && event.code == ABS_MT_SLOT) {
            slot = event.value;
        } else if (isLanding(event) && source.hasSlot(slot)) {
            completeSlot(slot, source, time);
            landed = true;
        }
    }
    if (landed) {
        completeAxes(source, time);
    }
}

void CloneWriter::completeSlot(std::int32_t slot, const PadState& source, double time) {
    for (std::uint16_t code = PadState::firstSlotAxis; code <= PadState::lastSlotAxis; ++code) {
        complete(slot, code, source.slotValue(slot, code), time);
    }
}

void CloneWriter::complete(std::int32_t slot, std::uint16_t code, std::int32_t value, double time) {
    if (held.slotValue(slot, code) != value) {
        choose(slot, time);
        addEvent({time, EV_ABS, code, value});
    }
}

// Adds the single-touch values that the clone lacks, for programs that do not track slots.
void CloneWriter::completeAxes(const PadState& source, double time) {
    for (std::uint16_t code = 0; code < ABS_MT_SLOT; ++code) {
        if (held.axis(code) != source.axis(code)) {
            addEvent({time, EV_ABS, code, source.axis(code)});
        }
    }
}

// Marks contacts as palms while a dropped press is held. Compares the pressed keys of the touchpad
// and the clone in every frame, so that the marks always end with the dropped press. A lifting
// finger loses its mark, because the slot's next contact may be an ordinary finger.
void CloneWriter::markContacts(const PadState& source, double time) {
    const bool pressWasTaken = source.holdsKeyThatIsUpIn(held);
    for (std::int32_t slot = 0; slot < held.slotCount(); ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        const bool mark = pressWasTaken && held.isDown(slot);
        if (mark || isMarked[index]) {
            const std::int32_t own = source.slotValue(slot, ABS_MT_TOOL_TYPE);
            complete(slot, ABS_MT_TOOL_TYPE, mark ? MT_TOOL_PALM : own, time);
        }
        isMarked[index] = mark;
    }
}

void CloneWriter::choose(std::int32_t slot, double time) {
    if (held.slot() != slot && held.hasSlot(slot)) {
        addEvent({time, EV_ABS, ABS_MT_SLOT, slot});
    }
}

bool CloneWriter::releaseAll() {
    for (std::int32_t slot = 0; slot < held.slotCount(); ++slot) {
        if (held.isDown(slot)) {
            choose(slot, timeOfWriting);
            addEvent({timeOfWriting, EV_ABS, ABS_MT_TRACKING_ID, -1});
        }
    }
    for (std::uint16_t key = 0; key < KEY_CNT; ++key) {
        if (held.isPressed(key)) {
            addEvent({timeOfWriting, EV_KEY, key, 0});
        }
    }
    return output.empty() || writeFrame(timeOfWriting);
}

bool CloneWriter::writeFrame(double time) {
    output.push_back({time, EV_SYN, SYN_REPORT, 0});
    const bool written = device->write(output);
    output.clear();
    return written;
}

} // namespace glidemap

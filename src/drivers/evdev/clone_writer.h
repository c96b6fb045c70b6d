// Says on a clone what was said on its touchpad, so that whoever reads the clone sees the same, but
// for a click that was taken out.
//
// The kernel drops a value that a device already has, on either of the two: a finger that lands
// where its slot last was says nothing of where that is, and a clone that is younger than its
// touchpad would not know. So whenever a finger lands, what the clone does not have yet is added to
// the frame; to a clone that has it all nothing is.
//
// While a press is held that was taken out, the fingers are said to be palms. Whoever makes taps of
// short touches hears of no button that would tell him better, and a palm does not tap; it does not
// point or scroll either, until the button is up and it is a finger again.
//
// Allocates nothing for a frame, once frames of its size have been seen.
//
// Thread:  under the driver's lock.
// Owner:   PadInterception, as long as the clone lasts.
// Errors:  a write that fails is answered; the clone is of no more use then.
#pragma once

#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/pad_state.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace glidemap {

class CloneWriter {
public:
    CloneWriter(std::unique_ptr<PadClone> clone, std::int32_t slotCount);

    // One frame without its synchronisation. `slotBefore` is the slot that the frame begins in,
    // `source` what the touchpad holds at its end.
    bool forward(std::span<const InputEvent> frame, std::int32_t slotBefore, const PadState& source,
                 double time);

    // Lifts every finger and every key that the clone holds.
    bool releaseAll();

    bool isPressed(std::uint16_t key) const { return held.isPressed(key); }
    PadClone& clone() { return *device; }

private:
    void say(const InputEvent& event);
    void completeLandings(std::span<const InputEvent> frame, std::int32_t slotBefore,
                          const PadState& source, double time);
    void completeSlot(std::int32_t slot, const PadState& source, double time);
    void complete(std::int32_t slot, std::uint16_t code, std::int32_t value, double time);
    void completeAxes(const PadState& source, double time);
    void markContacts(const PadState& source, double time);
    void choose(std::int32_t slot, double time);
    bool writeFrame(double time);

    std::unique_ptr<PadClone> device;
    PadState held;
    std::vector<bool> isMarked; // by slot: said to be a palm, for a press that was taken
    std::vector<InputEvent> output;
};

} // namespace glidemap

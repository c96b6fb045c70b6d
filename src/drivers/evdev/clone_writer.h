// Writes a touchpad's frames to its clone, so that readers of the clone see the same events, except
// for a dropped click.
//
// On each device, the kernel drops a value that the device already has. A finger that lands where
// its slot was last sends no position. A clone that is younger than its touchpad does not have that
// position. So whenever a finger lands, the writer adds the values that the clone is missing to the
// frame.
//
// While a dropped press is held, the writer marks the fingers as palms. A program that detects taps
// does not see the button, so it would take a short touch for a tap. A palm does not tap. It does
// not point or scroll either, until the button is up and the contact is a finger again.
//
// Allocates nothing for a frame, once frames of its size have been seen.
//
// Thread:  under the driver's lock.
// Owner:   PadInterception, as long as the clone exists.
// Errors:  forward() and releaseAll() return false if a write fails; the clone is useless then.
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

    // Writes one frame, without its SYN_REPORT. `slotBefore` is the slot at the frame's beginning,
    // `source` the touchpad's state at its end.
    bool forward(std::span<const InputEvent> frame, std::int32_t slotBefore, const PadState& source,
                 double time);

    // Lifts all fingers and keys that the clone holds.
    bool releaseAll();

    bool isPressed(std::uint16_t key) const { return held.isPressed(key); }
    PadClone& clone() { return *device; }

private:
    void addEvent(const InputEvent& event);
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
    std::vector<bool> isMarked; // by slot: marked as a palm because a press was dropped
    std::vector<InputEvent> output;
};

} // namespace glidemap

// Writes a touchpad's frames to its clone, so that readers of the clone see the same events, except
// for a dropped click.
//
// The kernel drops an event that does not change a value. A finger that lands where the slot's last
// contact ended therefore sends no position. A clone that was created after that contact does not
// have the position. So whenever a finger lands, the writer adds to the frame the values that the
// clone lacks.
//
// While a dropped press is held, the writer marks the fingers as palms. Otherwise a program that
// detects taps would take a short touch for a tap, because it does not receive the button press.
// Palms do not tap, point or scroll. When the button is up, the contacts are fingers again.
//
// Allocates only for frames that are larger than all earlier frames.
//
// Thread:  under the driver's lock.
// Owner:   PadInterception, as long as the clone exists.
// Errors:  forward() and releaseAll() return false if a write fails. The clone is then unusable.
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

    // Writes one frame. `frame` does not contain its SYN_REPORT. `slotBefore` is the current slot
    // at the beginning of the frame, and `source` is the touchpad's state at the end of the frame.
    bool forward(std::span<const InputEvent> frame, std::int32_t slotBefore, const PadState& source,
                 double time);

    // Ends all contacts of the clone and releases all its keys.
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

// The kernel's state of a touchpad: the values of its axes, slot by slot, and the pressed keys. A
// forwarded touchpad needs two such states, for itself and for its clone, because the kernel
// reports and accepts only changes.
//
// Units:   the device's own.
// Thread:  one.
// Owner:   PadInterception for the touchpad, CloneWriter for the clone.
// Errors:  none; axes and keys that a touchpad cannot have are ignored.
#pragma once

#include "drivers/contact/contact_assembler.h"

#include <linux/input-event-codes.h>

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace glidemap {

class PadState {
public:
    // The range of the axes that each slot has, including the tracking id.
    static constexpr std::uint16_t firstSlotAxis = ABS_MT_TOUCH_MAJOR;
    static constexpr std::uint16_t lastSlotAxis = ABS_MT_TOOL_Y;
    static constexpr bool isSlotAxis(std::uint16_t code) {
        return code >= firstSlotAxis && code <= lastSlotAxis;
    }

    // The state of a new device: every value is 0, no finger is down and no key is pressed.
    explicit PadState(std::int32_t slotCount);

    void apply(const InputEvent& event);

    bool isNeutral() const;

    std::int32_t slotCount() const { return static_cast<std::int32_t>(slots.size()); }
    std::int32_t slot() const { return currentSlot; }
    bool hasSlot(std::int32_t slotNumber) const {
        return slotNumber >= 0 && slotNumber < slotCount();
    }
    bool isDown(std::int32_t slotNumber) const;
    // hasSlot(slotNumber) must be true; `code` must be a per-slot axis.
    std::int32_t slotValue(std::int32_t slotNumber, std::uint16_t code) const;
    std::int32_t axis(std::uint16_t code) const { return axes[code]; }
    bool isPressed(std::uint16_t key) const { return keys[key]; }
    bool holdsKeyThatIsUpIn(const PadState& other) const { return (keys & ~other.keys).any(); }

private:
    using SlotAxes = std::array<std::int32_t, lastSlotAxis - firstSlotAxis + 1>;

    std::vector<SlotAxes> slots;
    std::int32_t currentSlot = 0;
    std::array<std::int32_t, ABS_CNT> axes{};
    std::bitset<KEY_CNT> keys;
};

} // namespace glidemap

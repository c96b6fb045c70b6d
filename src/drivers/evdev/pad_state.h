// What the kernel holds for a touchpad: where its axes are, slot by slot, and which keys are down.
// Kept twice for a touchpad that is forwarded, once for the touchpad and once for its clone, since
// the kernel tells and takes only changes.
//
// Units:   the device's own.
// Thread:  one.
// Owner:   whoever follows a device.
// Errors:  none; what no device of this kind has is ignored.
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
    // The axes that each slot has for itself. The tracking id is one of them.
    static constexpr std::uint16_t firstSlotAxis = ABS_MT_TOUCH_MAJOR;
    static constexpr std::uint16_t lastSlotAxis = ABS_MT_TOOL_Y;
    static constexpr bool isSlotAxis(std::uint16_t code) {
        return code >= firstSlotAxis && code <= lastSlotAxis;
    }

    // As a device is when it is made: every value 0, nothing touches and nothing is pressed.
    explicit PadState(std::int32_t slotCount);

    void apply(const InputEvent& event);

    // No finger is down and no key is pressed.
    bool isNeutral() const;

    std::int32_t slotCount() const { return static_cast<std::int32_t>(slots.size()); }
    std::int32_t slot() const { return currentSlot; }
    bool isDown(std::int32_t slotNumber) const;
    // `slotNumber` within the count, `code` an axis that a slot has.
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

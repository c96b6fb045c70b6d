#include "drivers/evdev/pad_state.h"

#include <algorithm>

namespace glidemap {

namespace {

constexpr std::size_t trackingId = ABS_MT_TRACKING_ID - PadState::firstSlotAxis;

} // namespace

PadState::PadState(std::int32_t slotCount)
    : slots(static_cast<std::size_t>(std::max(slotCount, 0))) {
    for (SlotAxes& slot : slots) {
        slot[trackingId] = -1;
    }
}

void PadState::apply(const InputEvent& event) {
    if (event.type == EV_KEY && event.code < KEY_CNT) {
        keys[event.code] = event.value != 0;
    } else if (event.type != EV_ABS || event.code >= ABS_CNT) {
        return;
    } else if (event.code == ABS_MT_SLOT) {
        currentSlot = event.value;
    } else if (!isSlotAxis(event.code)) {
        axes[event.code] = event.value;
    } else if (hasSlot(currentSlot)) {
        const std::size_t axisNumber = event.code - firstSlotAxis;
        slots[static_cast<std::size_t>(currentSlot)][axisNumber] = event.value;
    }
}

bool PadState::isNeutral() const {
    return keys.none() &&
           std::ranges::all_of(slots, [](const SlotAxes& slot) { return slot[trackingId] < 0; });
}

bool PadState::isDown(std::int32_t slotNumber) const {
    return slots[static_cast<std::size_t>(slotNumber)][trackingId] >= 0;
}

std::int32_t PadState::slotValue(std::int32_t slotNumber, std::uint16_t code) const {
    const std::size_t axisNumber = code - firstSlotAxis;
    return slots[static_cast<std::size_t>(slotNumber)][axisNumber];
}

} // namespace glidemap

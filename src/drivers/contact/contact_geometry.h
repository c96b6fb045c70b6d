// Converts the values that the kernel holds for a slot to the fields of a contact record.
//
// Units:   inputs in the device's own units. Results are normalised (0..1, origin at the bottom
//          left), in millimetres or in radians. Without a resolution, a contact's size stays in the
//          device's units, and positions in millimetres are 0.
// Thread:  any; pure functions.
// Errors:  none. A value outside its axis's range is clamped. If an axis has no extent, every value
//          is mapped to the middle of the axis.
#pragma once

#include "drivers/contact/pad_description.h"
#include "input/mt_touch.h"

#include <cstdint>

namespace glidemap {

// The kernel's values for one slot. They stay after a contact has ended, because the kernel sends
// no event for a value that is the same for the slot's next contact.
struct SlotValues {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t pressure = 0;
    std::int32_t touchMajor = 0;
    std::int32_t touchMinor = 0;
    std::int32_t orientation = 0;
    std::int32_t distance = 0;
    std::int32_t toolType = 0;
};

// Returns the value's position on the axis, 0..1.
double fraction(const AxisRange& axis, std::int32_t value);

// Returns whether the contact counts as touching. Palms, hovering fingers and contacts without
// pressure do not.
bool presses(const PadDescription& pad, const SlotValues& values);

// Returns the pad's size along the axis in millimetres, or 0 if the resolution is unknown.
double millimetres(const AxisRange& axis);

// Sets all fields that depend only on the slot's values: positions, size, angle and pressure. Does
// not change the velocities.
void describeContact(const PadDescription& pad, const SlotValues& values, MTTouch& record);

// Shifts the record's positions, both the normalised ones and those in millimetres.
void translate(const PadDescription& pad, MTPoint normalizedShift, MTTouch& record);

// Computes the velocities. `before` is the same contact's record in the previous report. Leaves the
// velocities unchanged if no time has passed since that report.
void describeVelocity(const MTTouch& before, MTTouch& record);

// Returns the contact's next state. `before` is its previous state, or 0 if it has not been
// reported.
std::int32_t nextState(std::int32_t before, bool pressing);

} // namespace glidemap

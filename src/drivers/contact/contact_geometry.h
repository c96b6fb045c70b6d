// Turns the values that the kernel holds for a slot into the fields of a contact record.
//
// Units:   in: the device's own. Out: normalised 0..1 with the origin bottom-left, millimetres,
//          radians.
// Thread:  any; pure functions.
// Errors:  none. A value outside its axis is taken as the nearest end; an axis without extent
//          answers its middle.
#pragma once

#include "drivers/contact/pad_description.h"
#include "input/mt_touch.h"

#include <cstdint>

namespace glidemap {

// The kernel's state of one slot. It outlives the contact: a finger that lands where the slot last
// was sends nothing.
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

// Where on the axis the value lies, 0..1.
double fraction(const AxisRange& axis, std::int32_t value);

// Whether such a contact presses on the pad, as a finger does: neither a palm nor one that only
// hovers.
bool presses(const PadDescription& pad, const SlotValues& values);

// The pad's size along the axis in millimetres; 0 where the resolution is unknown.
double millimetres(const AxisRange& axis);

// Fills everything that the slot's values tell: positions, size, angle and pressure, but not the
// velocities.
void describeContact(const PadDescription& pad, const SlotValues& values, MTTouch& record);

// Moves the record's positions, normalised and in millimetres.
void translate(const PadDescription& pad, MTPoint normalizedShift, MTTouch& record);

// The velocities from where the same contact was in the report before; none where no time has
// passed.
void describeVelocity(const MTTouch& before, MTTouch& record);

// The state after `before` (0 for a contact not reported yet) of one that presses on the pad or
// not.
std::int32_t nextState(std::int32_t before, bool pressing);

} // namespace glidemap

// Two fingers move apart, together, or around each other.
//
// Units:   normalised positions as recorded (stretched to the pad's shape here); radians, positive
// anticlockwise.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

// The fingers in the order in which they landed. A pair that changes its distance too much to
// rotate and too little, in proportion, to pinch is neither.
std::optional<GestureType> pinchOrRotateOf(const Track& first, const Track& second);

} // namespace glidemap

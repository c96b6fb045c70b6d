// Two fingers move apart, together, or around each other.
//
// Units:   normalised positions as recorded (the functions stretch them to the pad's
//          aspect ratio); radians, positive anticlockwise.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

// `first` landed before `second`. Returns nullopt for a pair whose distance changes too much for a
// rotation and too little, relative to its start, for a pinch.
std::optional<GestureType> pinchOrRotateOf(const Track& first, const Track& second);

} // namespace glidemap

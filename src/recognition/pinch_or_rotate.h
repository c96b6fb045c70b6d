// Recognises two fingers that move apart, together, or around each other.
//
// Units:   raw normalised positions (the function stretches them to the pad's aspect ratio);
//          radians, positive counterclockwise.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

// The order of the tracks does not matter. Also returns nullopt if the distance changes too much
// for a rotation but too little for a pinch.
std::optional<GestureType> pinchOrRotateOf(const Track& first, const Track& second);

} // namespace glidemap

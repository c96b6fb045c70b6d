// Recognises a quick movement of one finger from the rim of the pad inwards.
//
// Units:   raw normalised positions; seconds.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

// In a corner, the first matching edge in the order left, right, top, bottom counts: the finger
// starts there and moves inwards from it.
std::optional<GestureType> edgeSwipeOf(const Track& track, double duration);

} // namespace glidemap

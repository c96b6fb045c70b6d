// One finger starts on the rim of the pad and moves quickly inwards.
//
// Units:   raw normalised positions; seconds.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

// In a corner, the edge is the first of left, right, top, bottom at which the finger starts and
// from which it moves inwards.
std::optional<GestureType> edgeSwipeOf(const Track& track, double duration);

} // namespace glidemap

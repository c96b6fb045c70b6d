// Recognises a quick movement of one finger from the rim of the pad inwards.
//
// Units:   raw normalised positions; seconds.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

// A finger that starts in a corner starts at two edges. The gesture's edge is the first of the two,
// in the order left, right, top, bottom, from which the finger moves inwards.
std::optional<GestureType> edgeSwipeOf(const Track& track, double duration);

} // namespace glidemap

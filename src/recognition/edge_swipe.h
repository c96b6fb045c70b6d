// Recognises a quick movement of one finger from the rim of the pad inwards.
//
// Units:   raw normalised positions; seconds.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

// A finger that starts in a corner starts at two edges. Of these, the first one from which the
// finger moves inwards counts, in the order left, right, top, bottom.
std::optional<GestureType> edgeSwipeOf(const Track& track, double duration);

} // namespace glidemap

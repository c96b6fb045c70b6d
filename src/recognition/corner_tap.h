// Recognises one short, still touch in a corner of the pad.
//
// Units:   raw normalised positions; seconds.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>

namespace glidemap {

std::optional<GestureType> cornerTapOf(const Track& track, double duration);

} // namespace glidemap

// All fingers move together in one dominant direction.
//
// A swipe is quick (otherwise it is scrolling or dragging), long enough not to be a sloppy tap, of
// one mind (no finger against the others) and clearly along one axis.
//
// Units:   raw normalised positions; seconds.
// Errors:  none; what is not a swipe is none, and so is one of a number of fingers that has no
// swipes.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>
#include <span>

namespace glidemap {

// `tracks` are all those of the session, ended or not; `fingerCount` the most that touched at once.
std::optional<GestureType> swipeOf(std::span<const Track> tracks, int fingerCount, double duration);

// The mean of the tracks' displacements. There is at least one track.
PadPoint meanDisplacement(std::span<const Track> tracks);

} // namespace glidemap

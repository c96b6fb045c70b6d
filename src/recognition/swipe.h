// Recognises fingers that move together in one dominant direction.
//
// A swipe is quick (a slower movement is scrolling or dragging) and moves farther than a sloppy
// tap. Every finger moves less than 90° away from their mean direction, and one axis dominates. The
// limits are the constants in swipe.cpp. A swipe of one finger from an edge has its own limits, in
// edge_swipe.cpp.
//
// The time is that of the whole session, from the first finger that lands to the last that lifts.
// SessionRecognizer tests for a swipe last, after a tap, a pinch and a rotation.
//
// Units:   raw normalised positions; seconds.
// Errors:  none; returns nullopt if the movement is not a swipe, or if no gesture exists for a
//          swipe with this number of fingers.
#pragma once

#include "core/gesture_type.h"
#include "recognition/track.h"

#include <optional>
#include <span>

namespace glidemap {

// `tracks` are all tracks of the session, ended or not; `fingerCount` is the maximum number of
// simultaneous touches.
std::optional<GestureType> swipeOf(std::span<const Track> tracks, int fingerCount, double duration);

// Returns the mean of the tracks' displacements. `tracks` must not be empty.
PadPoint meanDisplacement(std::span<const Track> tracks);

} // namespace glidemap

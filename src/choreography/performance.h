// Performs gestures as a person does: with uneven timing and placement, yet unambiguously.
//
// A performance is the sequence of reports that a touchpad sends while a hand makes the gesture.
// Its parameters, such as the duration of a tap or the drift of a resting finger, were measured on
// real pads and are not tuned to a recognizer. The seed selects values from ranges that are well
// clear of every recognition limit.
//
// Units:   seconds from the first report, which is at 0; positions normalised, origin bottom-left.
// Thread:  any; the functions have no state.
// Errors:  clicks and `drawCircle` (the circle without a direction) have an empty performance,
//          because contacts alone cannot produce them.
#pragma once

#include "choreography/timed_report.h"
#include "core/gesture_type.h"

#include <cstdint>
#include <vector>

namespace glidemap {

// Returns the gestures that perform() supports, in declaration order: all except clicks and
// `drawCircle`.
std::vector<GestureType> performableGestures();

// The same gesture and seed always give the same performance.
Performance perform(GestureType gesture, std::uint64_t seed);

} // namespace glidemap

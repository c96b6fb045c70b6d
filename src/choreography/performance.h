// Performs gestures as a person does: with uneven timing and placement, yet unambiguously.
//
// A performance is the sequence of reports that a touchpad sends while a hand makes the gesture.
// Its parameters (how long a tap lasts, how far apart fingers land, how much a resting finger
// drifts) come from people on real pads. No parameter is tuned to a recognizer: the seed chooses
// freely within ranges that keep a clear distance from every recognition limit.
//
// Units:   seconds from the first report, which is at 0; positions normalised, origin bottom-left.
// Thread:  any; the functions have no state.
// Errors:  a gesture that contacts cannot make (a click, the circle of any direction) has an empty
//          performance.
#pragma once

#include "choreography/timed_report.h"
#include "core/gesture_type.h"

#include <cstdint>
#include <vector>

namespace glidemap {

// The gestures that perform() supports, in declaration order: all but clicks and the circle of any
// direction.
std::vector<GestureType> performableGestures();

// The same gesture and seed always give the same performance.
Performance perform(GestureType gesture, std::uint64_t seed);

} // namespace glidemap

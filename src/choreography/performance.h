// Performs gestures as a person does: unevenly, in time and in place, and unmistakably all the
// same.
//
// A performance is what a touchpad reports while a hand makes the gesture. The figures behind it
// (how long a tap lasts, how far apart fingers land, how much a resting finger wanders) are those
// of people on real pads. No figure is bent to please a recognizer: the seed chooses freely within
// ranges that leave every limit of recognition well to one side.
//
// Units:   seconds from the first report, which is at 0; positions normalised, origin bottom-left.
// Thread:  any; the functions keep nothing.
// Errors:  a gesture that no contact makes (a click, the circle of either direction) has an empty
//          performance.
#pragma once

#include "choreography/timed_report.h"
#include "core/gesture_type.h"

#include <cstdint>
#include <vector>

namespace glidemap {

// The gestures that contacts alone can make, in the order of declaration.
std::vector<GestureType> performableGestures();

// The same gesture and seed always give the same performance.
Performance perform(GestureType gesture, std::uint64_t seed);

} // namespace glidemap

// How a hand's fingers are placed on the pad, and how unevenly they land and lift.
//
// Units:   seconds; lengths in normalised units of each axis.
#pragma once

#include "choreography/chance.h"
#include "choreography/finger.h"

#include <vector>

namespace glidemap {

using Places = std::vector<PadPoint>;

// Two to five fingertips relative to the hand: neighbours on an arc, and the thumb below if there
// are five.
Places handLayout(int count, Chance& chance);

// Places a layout on the pad so that every finger is on it at the start and after moving by `way`.
// A layout that does not fit is centred.
Places placeOnPad(const Places& layout, PadPoint way, Chance& chance);

// The maximum fraction, up to 1, of `way` for which placeOnPad() finds room.
double partWithRoom(const Places& layout, PadPoint way);

// Returns landing times of fingers that are meant to land together: the first at `time`, the last
// at most `longest` later.
std::vector<double> landings(int count, double time, double longest, Chance& chance);

// Lifting times of fingers that a person means to lift together, the first at `time`.
std::vector<double> liftings(int count, double time, Chance& chance);

// The maximum delay between fingers that a person means to land together.
inline constexpr double landingSkew = 0.030;

double latest(const std::vector<double>& times);

} // namespace glidemap

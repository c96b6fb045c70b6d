// Determines where a hand's fingers are on the pad, and how unevenly they land and lift.
//
// Units:   seconds; lengths in normalised units of each axis.
#pragma once

#include "choreography/chance.h"
#include "choreography/finger.h"

#include <vector>

namespace glidemap {

using Places = std::vector<PadPoint>;

// Returns the positions of two to five fingertips relative to the hand. They form an arc. With five
// fingers, one end of the arc is the thumb, which lies lower.
Places handLayout(int count, Chance& chance);

// Places a layout on the pad so that every finger is on the pad before and after moving by
// `displacement`. Centres a layout that does not fit.
Places placeOnPad(const Places& layout, PadPoint displacement, Chance& chance);

// Returns the maximum fraction of `displacement`, up to 1, for which placeOnPad() has room.
double partWithRoom(const Places& layout, PadPoint displacement);

// Returns landing times of fingers that are meant to land together: the first at `time`, the last
// at most `longest` later.
std::vector<double> landings(int count, double time, double longest, Chance& chance);

// Returns lifting times of fingers that are meant to lift together, the first at `time`.
std::vector<double> liftings(int count, double time, Chance& chance);

// The maximum delay between the landings of fingers that are meant to land together.
inline constexpr double landingSkew = 0.030;

double latest(const std::vector<double>& times);

} // namespace glidemap

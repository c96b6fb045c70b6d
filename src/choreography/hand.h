// How a hand's fingers lie beside each other on the pad, and how unevenly they come and go.
//
// Units:   seconds; lengths in normalised units of each axis.
#pragma once

#include "choreography/chance.h"
#include "choreography/finger.h"

#include <vector>

namespace glidemap {

using Places = std::vector<PadPoint>;

// Two to five fingertips relative to the hand: neighbours on an arc, and for five the thumb below.
Places handLayout(int count, Chance& chance);

// Puts a layout somewhere on the pad so that every finger is on it at the start and after moving by
// `way`. What does not fit is centred.
Places placeOnPad(const Places& layout, PadPoint way, Chance& chance);

// The longest part, up to 1, of `way` for which placeOnPad() finds room.
double partWithRoom(const Places& layout, PadPoint way);

// When fingers that are meant to land together do: the first at `time`, the last at most `longest`
// after it.
std::vector<double> landings(int count, double time, double longest, Chance& chance);

// The same for lifting.
std::vector<double> liftings(int count, double time, Chance& chance);

// People's fingers land so far apart at most when they are meant to land together.
inline constexpr double landingSkew = 0.030;

double latest(const std::vector<double>& times);

} // namespace glidemap

#include "choreography/families.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace glidemap {

namespace {

// A loop as a person draws it: slightly oval, with an end that is nearer to the centre than the
// start, or farther away.
struct Loop {
    PadPoint centre;
    double radius = 0; // in units of the pad's height
    double begin = 0;  // radians
    double sweep = 0;  // radians, positive counterclockwise
    double oval = 0;   // relative to the radius; added along x and subtracted along y
    double spiral = 0; // growth of the radius over the whole sweep, relative to the radius

    PadPoint at(double part) const {
        const double angle = begin + sweep * part;
        const double round = radius * (1 + oval * std::cos(2 * angle) + spiral * (part - 0.5));
        return pointAround(centre, round, angle);
    }
};

// A person draws a loop at a constant speed, but starts and ends more slowly.
double loopProgress(double part) {
    constexpr double ramp = 0.15;
    constexpr double pace = 1 / (1 - ramp);
    const double u = std::clamp(part, 0.0, 1.0);
    if (u < ramp) {
        return pace * u * u / (2 * ramp);
    }
    if (u > 1 - ramp) {
        return 1 - pace * (1 - u) * (1 - u) / (2 * ramp);
    }
    return pace * (u - ramp / 2);
}

} // namespace

Fingers performCircle(Turn turn, Chance& chance) {
    constexpr double wholeTurn = 2 * std::numbers::pi;
    const double sweep = wholeTurn * chance.between(0.92, 1.08);
    const Loop loop = {.centre = {chance.between(0.42, 0.58), chance.between(0.42, 0.58)},
                       .radius = chance.between(0.14, 0.28),
                       .begin = chance.between(0, wholeTurn),
                       .sweep = turn == Turn::counterclockwise ? sweep : -sweep,
                       .oval = chance.between(-0.10, 0.10),
                       .spiral = chance.between(-0.15, 0.15)};
    const double start = chance.between(0.010, 0.040);
    const double duration = chance.between(0.5, 1.2);
    const double up = start + duration + chance.between(0.004, 0.030);
    return {{0, up, [=](double time) {
                 return loop.at(loopProgress((time - start) / duration));
             }}};
}

} // namespace glidemap

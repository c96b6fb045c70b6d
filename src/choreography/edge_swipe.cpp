#include "choreography/families.h"
#include "choreography/hand.h"

#include <cmath>

namespace glidemap {

namespace {

// The fingertip slides in from outside the pad, so its first contact is at the edge.
PadPoint placeOnEdge(Direction edge, Chance& chance) {
    const double depth = chance.between(0.004, 0.018);
    const double along = chance.between(0.30, 0.70);
    switch (edge) {
    case Direction::left:
        return {depth, along};
    case Direction::right:
        return {1 - depth, along};
    case Direction::up:
        return {along, 1 - depth};
    case Direction::down:
        return {along, depth};
    }
    return {};
}

Direction inwardsFrom(Direction edge) {
    switch (edge) {
    case Direction::left:
        return Direction::right;
    case Direction::right:
        return Direction::left;
    case Direction::up:
        return Direction::down;
    case Direction::down:
        return Direction::up;
    }
    return edge;
}

} // namespace

Fingers performEdgeSwipe(Direction edge, Chance& chance) {
    const double angle = angleOf(inwardsFrom(edge)) + chance.between(-0.25, 0.25);
    const double length = chance.between(0.30, 0.60);
    const double start = chance.between(0.010, 0.025);
    const double duration = chance.between(0.040, 0.160);
    const PadPoint displacement = {length * std::cos(angle), length * std::sin(angle)};
    const double up = start + duration + chance.between(0.004, 0.012);
    return {{0, up, stroke(placeOnEdge(edge, chance), displacement, start, duration)}};
}

} // namespace glidemap

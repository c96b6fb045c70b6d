// Pure functions for the geometry of pad points, shared by all classifiers.
//
// Units:   positions normalised 0..1, origin bottom-left, y upwards; angles in radians.
#pragma once

#include "input/pad_point.h"

#include <cmath>
#include <numbers>

namespace glidemap {

// Pads are wider than high. Classifiers that judge a shape use stretched points, so that a circle
// drawn by hand is a circle in these coordinates.
inline PadPoint stretched(PadPoint point) {
    return {point.x * padAspect, point.y};
}

// Uses sqrt instead of std::hypot, because this function runs for every finger of every frame, and
// positions are too small to overflow.
inline double length(PadPoint vector) {
    return std::sqrt(vector.x * vector.x + vector.y * vector.y);
}

inline double distance(PadPoint a, PadPoint b) {
    return length(a - b);
}

inline double dot(PadPoint a, PadPoint b) {
    return a.x * b.x + a.y * b.y;
}

inline double angle(PadPoint vector) {
    return std::atan2(vector.y, vector.x);
}

// Normalises an angle difference to the shorter rotation. `difference` is the difference of two
// results of angle().
inline double wrapped(double difference) {
    while (difference > std::numbers::pi) {
        difference -= 2 * std::numbers::pi;
    }
    while (difference < -std::numbers::pi) {
        difference += 2 * std::numbers::pi;
    }
    return difference;
}

} // namespace glidemap

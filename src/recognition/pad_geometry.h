// Points on the pad and the geometry that all classifiers share. Pure functions.
//
// Units:   positions normalised 0..1, origin bottom-left, y upwards; angles in radians.
#pragma once

#include <cmath>
#include <numbers>

namespace glidemap {

struct PadPoint {
    double x = 0;
    double y = 0;

    friend PadPoint operator-(PadPoint a, PadPoint b) { return {a.x - b.x, a.y - b.y}; }
    friend PadPoint operator+(PadPoint a, PadPoint b) { return {a.x + b.x, a.y + b.y}; }
    friend bool operator==(const PadPoint&, const PadPoint&) = default;
};

// Pads are wider than high. Classifiers that judge a shape stretch x by the usual aspect ratio, so
// that a circle drawn by hand is a circle in these coordinates.
inline constexpr double padAspect = 1.35;

inline PadPoint stretched(PadPoint point) {
    return {point.x * padAspect, point.y};
}

// Uses sqrt instead of std::hypot, because it runs for every finger of every frame and positions
// are too small to overflow.
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

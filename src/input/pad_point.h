// A point or a displacement on a pad.
//
// Units:   normalised 0..1 per axis, origin bottom-left, y upwards.
#pragma once

namespace glidemap {

// The usual ratio of a pad's width to its height. Shapes and rotations are computed in a space
// whose x axis is stretched by this factor, so that they have the right form on the physical pad.
inline constexpr double padAspect = 1.35;

struct PadPoint {
    double x = 0;
    double y = 0;

    friend PadPoint operator+(PadPoint a, PadPoint b) { return {a.x + b.x, a.y + b.y}; }
    friend PadPoint operator-(PadPoint a, PadPoint b) { return {a.x - b.x, a.y - b.y}; }
    friend PadPoint operator*(PadPoint a, double factor) { return {a.x * factor, a.y * factor}; }
    friend bool operator==(const PadPoint&, const PadPoint&) = default;
};

} // namespace glidemap

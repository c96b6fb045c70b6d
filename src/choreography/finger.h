// One contact of a performance: when the finger is down and where it is at any time.
//
// Units:   seconds from the first finger's landing; positions normalised, y upwards.
#pragma once

#include <functional>
#include <vector>

namespace glidemap {

struct PadPoint {
    double x = 0;
    double y = 0;

    friend PadPoint operator+(PadPoint a, PadPoint b) { return {a.x + b.x, a.y + b.y}; }
    friend PadPoint operator-(PadPoint a, PadPoint b) { return {a.x - b.x, a.y - b.y}; }
    friend PadPoint operator*(PadPoint a, double factor) { return {a.x * factor, a.y * factor}; }
};

// Returns the finger's position at a time. Also valid before landing and after lifting, while the
// finger hovers.
using FingerPath = std::function<PadPoint(double time)>;

struct Finger {
    double down = 0;
    double up = 0;
    FingerPath path;
};

using Fingers = std::vector<Finger>;

// The usual ratio of a pad's width to its height. Circles and rotations are computed in a space
// whose x axis is stretched by this factor, so that they have the right shape on the physical pad.
inline constexpr double padAspect = 1.35;

// Returns the point at `distance` from `centre` in the direction `angle`. Both refer to the
// stretched space; the distance is in units of the pad's height.
PadPoint pointAround(PadPoint centre, double distance, double angle);

// Returns the completed fraction of a stroke after the fraction `part` of its duration. The hand
// accelerates and decelerates smoothly. Constant before 0 and after 1.
double strokeProgress(double part);

FingerPath restingAt(PadPoint place);

// Moves from `start` by `way`, beginning at `time` and lasting `duration`.
FingerPath stroke(PadPoint start, PadPoint way, double time, double duration);

} // namespace glidemap

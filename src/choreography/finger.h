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

// Also defined before landing and after lifting, while the finger hovers.
using FingerPath = std::function<PadPoint(double time)>;

struct Finger {
    double down = 0;
    double up = 0;
    FingerPath path;
};

using Fingers = std::vector<Finger>;

// The usual ratio of a pad's width to its height: a shape looks round or rotated to a person in a
// space whose x is stretched by this factor.
inline constexpr double padAspect = 1.35;

// The point at `distance` from `centre` in the direction `angle`, both in the stretched space, in
// units of the pad's height.
PadPoint pointAround(PadPoint centre, double distance, double angle);

// The completed fraction of a stroke after the fraction `part` of its time: the hand accelerates
// gently and decelerates gently. Constant before 0 and after 1.
double strokeProgress(double part);

FingerPath restingAt(PadPoint place);

// From `start` by the displacement `way`, beginning at `time` and lasting `duration`.
FingerPath stroke(PadPoint start, PadPoint way, double time, double duration);

} // namespace glidemap

// One contact of a performance: when a finger is down and where it is at every moment.
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

// Also defined before the finger lands and after it lifts, where it hovers.
using FingerPath = std::function<PadPoint(double time)>;

struct Finger {
    double down = 0;
    double up = 0;
    FingerPath path;
};

using Fingers = std::vector<Finger>;

// A pad is about so much wider than high: what looks round or turned to a person is so in a space
// with x stretched by this.
inline constexpr double padAspect = 1.35;

// The point at `distance` from `centre` in the direction `angle`, as a person sees them: both in
// the stretched space, in units of the pad's height.
PadPoint pointAround(PadPoint centre, double distance, double angle);

// How far along a stroke a hand is after `part` of its time: it sets off gently and arrives gently,
// the way hands move from rest to rest. Stands still before 0 and after 1.
double strokeProgress(double part);

FingerPath restingAt(PadPoint place);

// From `start` by `way`, beginning at `time` and taking `duration`.
FingerPath stroke(PadPoint start, PadPoint way, double time, double duration);

} // namespace glidemap

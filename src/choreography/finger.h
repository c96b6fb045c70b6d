// One contact of a performance: when the finger is down and where it is at any time.
//
// Units:   seconds from the first finger's landing; positions normalised, y upwards.
#pragma once

#include "input/pad_point.h"

#include <functional>
#include <vector>

namespace glidemap {

// Returns the finger's position at a time. Also valid before landing and after lifting, while the
// finger hovers.
using FingerPath = std::function<PadPoint(double time)>;

struct Finger {
    double down = 0;
    double up = 0;
    FingerPath path;
};

using Fingers = std::vector<Finger>;

// Returns the point at `distance` from `centre` in the direction `angle`. The distance and the
// angle refer to the space whose x axis is stretched by padAspect; the distance is in units of the
// pad's height.
PadPoint pointAround(PadPoint centre, double distance, double angle);

// Returns the completed fraction of a stroke after the fraction `part` of its duration. The hand
// accelerates and decelerates smoothly. Returns 0 if `part` is negative, and 1 if it exceeds 1.
double strokeProgress(double part);

FingerPath restingAt(PadPoint place);

// Returns a path that moves from `start` by `displacement`, beginning at `time` and lasting
// `duration`.
FingerPath stroke(PadPoint start, PadPoint displacement, double time, double duration);

} // namespace glidemap

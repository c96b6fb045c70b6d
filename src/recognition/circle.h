// Recognises a closed loop that one finger draws.
//
// The path is evaluated around the mean of its points, with x stretched to the pad's aspect ratio.
// A circle must have a plausible size, be round enough, sweep most of a turn and end near its
// start. The result is always clockwise or counterclockwise, never the circle of any direction.
//
// Units:   raw normalised positions (the functions stretch them to the pad's aspect ratio);
//          radians, positive counterclockwise; seconds.
#pragma once

#include "core/gesture_type.h"
#include "recognition/pad_geometry.h"

#include <optional>
#include <span>

namespace glidemap {

std::optional<GestureType> circleOf(std::span<const PadPoint> path, double duration);

// Returns the mean of the stretched points. `path` must not be empty.
PadPoint centreOf(std::span<const PadPoint> path);

struct Radii {
    double mean = 0;
    double deviation = 0; // the population standard deviation
};

// Returns the mean and the deviation of the stretched points' distances from `centre`.
Radii radiiAround(PadPoint centre, std::span<const PadPoint> path);

// Returns the total angle by which the stretched path turns around `centre`. It may exceed one
// turn.
double sweptAngle(PadPoint centre, std::span<const PadPoint> path);

} // namespace glidemap

// One finger draws a closed loop.
//
// The path is evaluated around the mean of its points, with x stretched to the pad's aspect ratio.
// A circle must have a plausible size, be round enough, sweep most of a turn and end near its
// start. The result is always clockwise or anticlockwise, never the catalogue's direction-free
// circle.
//
// Units:   normalised positions as recorded (the functions stretch them); radians, positive
// anticlockwise; seconds.
#pragma once

#include "core/gesture_type.h"
#include "recognition/pad_geometry.h"

#include <optional>
#include <span>

namespace glidemap {

std::optional<GestureType> circleOf(std::span<const PadPoint> path, double duration);

// The mean of the stretched points. The path must not be empty.
PadPoint centreOf(std::span<const PadPoint> path);

struct Radii {
    double mean = 0;
    double deviation = 0; // the population standard deviation
};

// The distances of the stretched points from `centre`.
Radii radiiAround(PadPoint centre, std::span<const PadPoint> path);

// The total angle that the stretched path turns around `centre`; it may exceed one turn.
double sweptAngle(PadPoint centre, std::span<const PadPoint> path);

} // namespace glidemap

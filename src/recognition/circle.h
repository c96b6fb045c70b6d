// One finger draws a closed loop.
//
// The path is judged around the mean of its points, with x stretched to the pad's shape: of a
// hand's size, round enough, swept most of the way round, and closed. The direction-free circle of
// the catalogue is never an answer: a circle is always drawn one way or the other.
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

// The mean of the stretched points. There is at least one.
PadPoint centreOf(std::span<const PadPoint> path);

struct Radii {
    double mean = 0;
    double deviation = 0; // the population standard deviation
};

// The distances of the stretched points from `centre`.
Radii radiiAround(PadPoint centre, std::span<const PadPoint> path);

// The whole turn that the stretched path makes around `centre`, more than one round included.
double sweptAngle(PadPoint centre, std::span<const PadPoint> path);

} // namespace glidemap

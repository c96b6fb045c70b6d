// Computes the motion of the demonstrations: the fingertips, the trail, and the ring of a press,
// for each gesture and each moment of its loop.
//
// Units:   positions in pad units, 0..1 from the pad's left and top edges; a ring's radius in units
//          of the pad's height; times in seconds since the start of the loop; opacities 0..1.
// Thread:  any; pure functions.
// Errors:  none. NaN as a time counts as the start of the loop.
#pragma once

#include "core/gesture_type.h"

#include <optional>
#include <vector>

namespace glidemap::demo {

// The duration of every loop. All views run in phase.
inline constexpr double loopDuration = 2.6;

struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Finger {
    Point position;
    double opacity = 1;
    double scale = 1; // relative to the normal size
};

struct Ring {
    Point center;
    double radius = 0;
    double opacity = 0;
};

struct Frame {
    std::vector<Finger> fingers;
    std::vector<Point> trail; // may be empty
    std::optional<Ring> ring;
};

Frame frame(GestureType gesture, double t);

// Returns the progress of a movement that starts and ends slowly. x is clamped to 0..1.
double smoothstep(double x);

// Returns the opacity of a finger that is visible between two times: 0 before the first and after
// the second, and 1 if `t` is at least `fade` seconds away from both.
double env(double t, double from, double to, double fade);

// Returns the fingertips of a hand from left to right. The outer fingers are slightly lower.
std::vector<Point> hand(int count, Point center, double spacing);

} // namespace glidemap::demo

// The motion of the demonstrations: for each gesture and moment of its loop, where the fingertips
// are on the pad, what they have drawn, and the ring of a press.
//
// Units:   positions in pad units, 0..1 from the pad's left and top edges; a ring's radius in units
//          of the pad's height; times in seconds since the start of the loop; opacities 0..1.
// Thread:  any; pure functions.
// Errors:  none. A time that is not a number is taken for the start of the loop.
#pragma once

#include "core/gesture_type.h"

#include <optional>
#include <vector>

namespace glidemap::demo {

// The length of every loop, which all views run through together.
inline constexpr double loopDuration = 2.6;

struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Finger {
    Point position;
    double opacity = 1;
    double scale = 1; // of its normal size
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

// How far a movement has come at this share of its time, which counts as 0..1: slow at both ends.
double smoothstep(double x);

// How far a finger has faded in: 0 outside the span, 1 once `fade` seconds lie between t and both
// its ends.
double env(double t, double from, double to, double fade);

// The fingertips of a hand, from left to right: in a row, the outer ones a little lower.
std::vector<Point> hand(int count, Point center, double spacing);

} // namespace glidemap::demo

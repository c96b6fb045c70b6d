// The families that the demonstrations' motions come in, and what they have in common.
//
// Within a family of the catalogue the finger counts, and within a finger count the directions, are
// declared one after another, so a family knows its members by their places.
//
// Units, Thread, Errors: as in gesture_demo.h.
#pragma once

#include "ui/demo/gesture_demo.h"

#include <cstddef>

namespace glidemap::demo {

inline constexpr Point padCenter = {0.5, 0.5};

// Between the fingers of a hand that stays where it is.
inline constexpr double restingSpacing = 0.16;

constexpr std::size_t placeFrom(GestureType first, GestureType gesture) {
    return static_cast<std::size_t>(gesture) - static_cast<std::size_t>(first);
}

// How many fingers make a gesture of a family that begins with two and adds one each time.
constexpr int fingersFromTwo(GestureType first, GestureType gesture) {
    return 2 + static_cast<int>(placeFrom(first, gesture));
}

// Fingers in these places, all alike.
std::vector<Finger> fingersAt(const std::vector<Point>& places, double opacity, double scale = 1);

Frame circle(GestureType gesture, double t);
Frame fixAndTap(GestureType gesture, double t);
Frame tap(GestureType gesture, double t);
Frame doubleTap(GestureType gesture, double t);
Frame click(GestureType gesture, double t);
Frame swipe(GestureType gesture, double t);
Frame edgeSwipe(GestureType gesture, double t);
Frame cornerTap(GestureType gesture, double t);
Frame pinchOrRotate(GestureType gesture, double t);
Frame longPress(GestureType gesture, double t);

} // namespace glidemap::demo

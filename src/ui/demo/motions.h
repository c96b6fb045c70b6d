// The motions of the demonstrations, one per category of gestures, and their common parts.
//
// Units:   as in gesture_demo.h.
// Thread:  as in gesture_demo.h.
// Errors:  as in gesture_demo.h.
#pragma once

#include "ui/demo/gesture_demo.h"

namespace glidemap::demo {

inline constexpr Point padCenter = {0.5, 0.5};

// The distance between the fingers of a hand at rest.
inline constexpr double restingSpacing = 0.16;

// Returns fingers at these positions, with equal opacity and scale.
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

// Generates the finger movements for each family of gestures.
//
// Thread:  any; every random choice comes from `chance`.
#pragma once

#include "choreography/chance.h"
#include "choreography/finger.h"

namespace glidemap {

enum class Direction { left, right, up, down };
enum class Turn { clockwise, counterclockwise };
enum class Pinch { in, out };

// tap.cpp
Fingers performTap(int count, Chance& chance);
Fingers performDoubleTap(int count, Chance& chance);
Fingers performCornerTap(Direction side, Direction end, Chance& chance);

// rest.cpp
Fingers performLongPress(int count, Chance& chance);
Fingers performFixAndTap(Direction side, Chance& chance);

// swipe.cpp
Fingers performSwipe(int count, Direction direction, Chance& chance);

// edge_swipe.cpp
Fingers performEdgeSwipe(Direction edge, Chance& chance);

// circle.cpp
Fingers performCircle(Turn turn, Chance& chance);

// pinch_and_rotate.cpp
Fingers performPinch(Pinch pinch, Chance& chance);
Fingers performRotation(Turn turn, Chance& chance);

// Returns the direction's angle in radians, counterclockwise from the right.
double angleOf(Direction direction);

} // namespace glidemap

// Taps: fingers appear enlarged, shrink onto the pad, and lift in place.
#include "motions.h"

#include <algorithm>
#include <initializer_list>

namespace glidemap::demo {

namespace {

struct Window {
    double start;
    double end;
};

// Returns how far the fingers are down: 1 from 0.1 s after the start of a time window until 0.1 s
// before its end, and 0 outside all windows.
double pressLevel(double t, std::initializer_list<Window> windows) {
    constexpr double fade = 0.1;
    double level = 0;
    for (const Window& window : windows) {
        level = std::max(level, env(t, window.start, window.end, fade));
    }
    return level;
}

Frame landingHand(int count, double level) {
    return {.fingers =
                fingersAt(hand(count, padCenter, restingSpacing), level, 1 + 0.25 * (1 - level)),
            .trail = {},
            .ring = {}};
}

// The finger shrinks from a slightly larger size while it lands.
Finger landingFinger(Point where, double level) {
    return {where, level, 1 + 0.3 * (1 - level)};
}

Point besideFixedFinger(GestureDirection side) {
    switch (side) {
    case GestureDirection::right:
        return {0.76, 0.52};
    case GestureDirection::left:
        return {0.24, 0.52};
    case GestureDirection::up:
        return {0.5, 0.26};
    default:
        return {0.5, 0.78};
    }
}

Point inCorner(GestureDirection corner) {
    switch (corner) {
    case GestureDirection::topLeft:
        return {0.12, 0.17};
    case GestureDirection::topRight:
        return {0.88, 0.17};
    case GestureDirection::bottomLeft:
        return {0.12, 0.83};
    default:
        return {0.88, 0.83};
    }
}

} // namespace

Frame tap(GestureType gesture, double t) {
    return landingHand(fingerCount(gesture), pressLevel(t, {{0.9, 1.5}}));
}

Frame doubleTap(GestureType gesture, double t) {
    return landingHand(fingerCount(gesture), pressLevel(t, {{0.7, 1.05}, {1.3, 1.65}}));
}

Frame fixAndTap(GestureType gesture, double t) {
    const Point where = besideFixedFinger(direction(gesture));
    const Finger fixed = {{0.5, 0.52}, env(t, 0.2, 2.4, 0.18)};
    return {
        .fingers = {fixed, landingFinger(where, env(t, 1.0, 1.5, 0.12))}, .trail = {}, .ring = {}};
}

Frame cornerTap(GestureType gesture, double t) {
    const Point corner = inCorner(direction(gesture));
    return {.fingers = {landingFinger(corner, env(t, 0.9, 1.5, 0.12))}, .trail = {}, .ring = {}};
}

} // namespace glidemap::demo

// Pinch and rotation: two fingers move in opposite directions, along a diagonal or around a centre.
#include "motions.h"

#include <cmath>
#include <numbers>

namespace glidemap::demo {

namespace {

Frame pinch(bool closing, double t) {
    constexpr double widest = 0.3;
    constexpr double closest = 0.1;
    constexpr double slope = 0.4; // slope of the diagonal between thumb and forefinger
    const double moved = 0.2 * smoothstep((t - 0.5) / 1.1);
    const double half = closing ? widest - moved : closest + moved;
    const double opacity = env(t, 0.35, 1.95, 0.18);
    return {.fingers = {{{padCenter.x - half, padCenter.y + slope * half}, opacity},
                        {{padCenter.x + half, padCenter.y - slope * half}, opacity}},
            .trail = {},
            .ring = {}};
}

Frame rotation(double turn, double t) {
    constexpr double radius = 0.22;
    constexpr double stretch = 1.1;
    constexpr double maxAngle = 1.7453292519943295; // 100 degrees
    constexpr double pi = std::numbers::pi;
    const double turned = turn * maxAngle * smoothstep((t - 0.5) / 1.2);
    const double opacity = env(t, 0.35, 2.0, 0.18);
    const auto fingerAt = [&](double angle) {
        return Finger{{padCenter.x + radius * stretch * std::cos(angle),
                       padCenter.y + radius * std::sin(angle)},
                      opacity};
    };
    return {.fingers = {fingerAt(turned - pi / 6), fingerAt(turned + 5 * pi / 6)},
            .trail = {},
            .ring = {}};
}

} // namespace

Frame pinchOrRotate(GestureType gesture, double t) {
    switch (gesture) {
    case GestureType::pinchIn:
        return pinch(true, t);
    case GestureType::pinchOut:
        return pinch(false, t);
    case GestureType::rotateCounterclockwise:
        return rotation(-1, t);
    default:
        return rotation(1, t);
    }
}

} // namespace glidemap::demo

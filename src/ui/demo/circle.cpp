// The motion of the circle gestures: one finger draws one full circle, starting at the top.
#include "motions.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace glidemap::demo {

namespace {

constexpr double radius = 0.3;
// A horizontal factor that makes the circle look round on a pad that is wider than tall.
constexpr double squeeze = 0.72;
constexpr double top = -std::numbers::pi / 2;

Point onTheCircle(double angle) {
    return {padCenter.x + radius * squeeze * std::cos(angle),
            padCenter.y + radius * std::sin(angle)};
}

// Returns the arc drawn so far, in steps of about 6 degrees. Before the finger moves, all points of
// the arc coincide.
std::vector<Point> arc(double swept, double progress) {
    constexpr double piecesOfACircle = 60;
    const int pieces = std::max(static_cast<int>(std::floor(piecesOfACircle * progress)), 2);
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(pieces) + 1);
    for (int index = 0; index <= pieces; ++index) {
        points.push_back(onTheCircle(swept * index / pieces + top));
    }
    return points;
}

} // namespace

Frame circle(GestureType gesture, double t) {
    const double turn = direction(gesture) == GestureDirection::counterclockwise ? -1 : 1;
    const double progress = smoothstep((t - 0.25) / 1.8);
    const double swept = turn * 2 * std::numbers::pi * progress;
    return {.fingers = {{onTheCircle(swept + top), env(t, 0.15, 2.25, 0.18)}},
            .trail = arc(swept, progress),
            .ring = {}};
}

} // namespace glidemap::demo

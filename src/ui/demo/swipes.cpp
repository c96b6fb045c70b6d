// Swipes: several fingers move in a straight line across the pad, or one finger moves inwards from
// an edge.
#include "motions.h"

#include <cmath>

namespace glidemap::demo {

namespace {

// The trail is hidden until this fraction of the movement is complete.
constexpr double trailBegins = 0.02;

Point stepTowards(GestureDirection direction) {
    switch (direction) {
    case GestureDirection::left:
        return {-1, 0};
    case GestureDirection::right:
        return {1, 0};
    case GestureDirection::up:
        return {0, -1};
    default:
        return {0, 1};
    }
}

struct Edge {
    Point start;
    Point inwards;
};

Edge edgeAt(GestureDirection side) {
    switch (side) {
    case GestureDirection::left:
        return {{0.06, 0.5}, {0.4, 0}};
    case GestureDirection::right:
        return {{0.94, 0.5}, {-0.4, 0}};
    case GestureDirection::up:
        return {{0.5, 0.09}, {0, 0.4}};
    default:
        return {{0.5, 0.91}, {0, -0.4}};
    }
}

Point moved(Point from, Point direction, double distance) {
    return {from.x + direction.x * distance, from.y + direction.y * distance};
}

} // namespace

Frame swipe(GestureType gesture, double t) {
    constexpr double length = 0.34;
    const int count = fingerCount(gesture);
    const Point step = stepTowards(direction(gesture));
    // When the hand moves sideways, its fingers are closer together.
    const double spacing = std::abs(step.x) > 0.5 ? 0.11 : restingSpacing;

    const double progress = smoothstep(t - 0.5);
    const double travel = length * progress;
    const Point center = moved(padCenter, step, travel - length / 2);
    const std::vector<Point> places = hand(count, center, spacing);

    Frame frame;
    frame.fingers = fingersAt(places, env(t, 0.35, 1.8, 0.18));
    if (progress > trailBegins) {
        const Point middle = places[places.size() / 2];
        frame.trail = {moved(middle, step, -travel), middle};
    }
    return frame;
}

Frame edgeSwipe(GestureType gesture, double t) {
    const Edge edge = edgeAt(direction(gesture));
    const double progress = smoothstep((t - 0.55) / 0.9);
    const Point finger = moved(edge.start, edge.inwards, progress);

    Frame frame;
    frame.fingers = {{finger, env(t, 0.4, 1.75, 0.18)}};
    if (progress > trailBegins) {
        frame.trail = {edge.start, finger};
    }
    return frame;
}

} // namespace glidemap::demo

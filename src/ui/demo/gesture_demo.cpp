#include "ui/demo/gesture_demo.h"

#include "motions.h"

#include <algorithm>

namespace glidemap::demo {

Frame frame(GestureType gesture, double t) {
    switch (category(gesture)) {
    case GestureCategory::circle:
        return circle(gesture, t);
    case GestureCategory::fixAndTap:
        return fixAndTap(gesture, t);
    case GestureCategory::tap:
        return tap(gesture, t);
    case GestureCategory::doubleTap:
        return doubleTap(gesture, t);
    case GestureCategory::click:
        return click(gesture, t);
    case GestureCategory::swipe:
        return swipe(gesture, t);
    case GestureCategory::edgeSwipe:
        return edgeSwipe(gesture, t);
    case GestureCategory::cornerTap:
        return cornerTap(gesture, t);
    case GestureCategory::pinchRotate:
        return pinchOrRotate(gesture, t);
    case GestureCategory::longPress:
        return longPress(gesture, t);
    }
    return {};
}

double smoothstep(double x) {
    const double clamped = x > 0 ? std::min(x, 1.0) : 0; // NaN becomes 0, too
    return clamped * clamped * (3 - 2 * clamped);
}

double env(double t, double from, double to, double fade) {
    const bool within = t >= from && t <= to;
    return within ? std::min(smoothstep((t - from) / fade), smoothstep((to - t) / fade)) : 0;
}

std::vector<Point> hand(int count, Point center, double spacing) {
    constexpr double droop = 0.018; // lowers the outer fingers, as on a real hand
    constexpr double lift = 0.01;   // raises the whole row, to centre it visually
    std::vector<Point> fingertips;
    fingertips.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int index = 0; index < count; ++index) {
        const double fromMiddle = index - (count - 1) / 2.0;
        fingertips.push_back(
            {center.x + spacing * fromMiddle, center.y + droop * fromMiddle * fromMiddle - lift});
    }
    return fingertips;
}

std::vector<Finger> fingersAt(const std::vector<Point>& places, double opacity, double scale) {
    std::vector<Finger> fingers;
    fingers.reserve(places.size());
    for (const Point& place : places) {
        fingers.push_back({place, opacity, scale});
    }
    return fingers;
}

} // namespace glidemap::demo

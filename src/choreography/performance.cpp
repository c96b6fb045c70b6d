#include "choreography/performance.h"

#include "choreography/families.h"
#include "choreography/pad.h"

#include <numbers>

namespace glidemap {

namespace {

Direction towards(GestureType gesture) {
    switch (direction(gesture)) {
    case GestureDirection::right:
        return Direction::right;
    case GestureDirection::up:
        return Direction::up;
    case GestureDirection::down:
        return Direction::down;
    default:
        return Direction::left;
    }
}

Fingers cornerTap(GestureType gesture, Chance& chance) {
    const GestureDirection corner = direction(gesture);
    const bool left = corner == GestureDirection::topLeft || corner == GestureDirection::bottomLeft;
    const bool top = corner == GestureDirection::topLeft || corner == GestureDirection::topRight;
    return performCornerTap(left ? Direction::left : Direction::right,
                            top ? Direction::up : Direction::down, chance);
}

Fingers circle(GestureType gesture, Chance& chance) {
    if (gesture == GestureType::drawCircle) {
        return {};
    }
    const bool clockwise = direction(gesture) == GestureDirection::clockwise;
    return performCircle(clockwise ? Turn::clockwise : Turn::counterclockwise, chance);
}

Fingers pinchOrRotation(GestureType gesture, Chance& chance) {
    switch (gesture) {
    case GestureType::pinchIn:
        return performPinch(Pinch::in, chance);
    case GestureType::pinchOut:
        return performPinch(Pinch::out, chance);
    case GestureType::rotateClockwise:
        return performRotation(Turn::clockwise, chance);
    default:
        return performRotation(Turn::counterclockwise, chance);
    }
}

Fingers fingersFor(GestureType gesture, Chance& chance) {
    switch (category(gesture)) {
    case GestureCategory::circle:
        return circle(gesture, chance);
    case GestureCategory::fixAndTap:
        return performFixAndTap(towards(gesture), chance);
    case GestureCategory::tap:
        return performTap(fingerCount(gesture), chance);
    case GestureCategory::doubleTap:
        return performDoubleTap(fingerCount(gesture), chance);
    case GestureCategory::click:
        return {};
    case GestureCategory::swipe:
        return performSwipe(fingerCount(gesture), towards(gesture), chance);
    case GestureCategory::edgeSwipe:
        return performEdgeSwipe(towards(gesture), chance);
    case GestureCategory::cornerTap:
        return cornerTap(gesture, chance);
    case GestureCategory::pinchRotate:
        return pinchOrRotation(gesture, chance);
    case GestureCategory::longPress:
        return performLongPress(fingerCount(gesture), chance);
    }
    return {};
}

} // namespace

double angleOf(Direction direction) {
    using std::numbers::pi;
    switch (direction) {
    case Direction::right:
        return 0;
    case Direction::up:
        return pi / 2;
    case Direction::left:
        return pi;
    case Direction::down:
        return -pi / 2;
    }
    return 0;
}

std::vector<GestureType> performableGestures() {
    std::vector<GestureType> gestures;
    for (const GestureType gesture : allGestureTypes) {
        if (gesture != GestureType::drawCircle && category(gesture) != GestureCategory::click) {
            gestures.push_back(gesture);
        }
    }
    return gestures;
}

Performance perform(GestureType gesture, std::uint64_t seed) {
    // Different gestures with the same seed make different random choices.
    constexpr std::uint64_t apart = 1'000'003;
    Chance chance(seed * apart + static_cast<std::uint64_t>(gesture));
    const Fingers fingers = fingersFor(gesture, chance);
    return fingers.empty() ? Performance{} : report(fingers, chance);
}

} // namespace glidemap

#include "choreography/performance.h"

#include "choreography/families.h"
#include "choreography/pad.h"

#include <array>
#include <cstddef>
#include <numbers>

namespace glidemap {

namespace {

std::size_t position(GestureType gesture) {
    return static_cast<std::size_t>(gesture);
}

// The members of a family stand in one order in the catalogue; this is the place within it.
std::size_t placeAfter(GestureType gesture, GestureType first) {
    return position(gesture) - position(first);
}

// Families with finger counts begin with two.
int fingerCount(std::size_t place) {
    return 2 + static_cast<int>(place);
}

Fingers swipe(GestureType gesture, Chance& chance) {
    constexpr std::array directions = {Direction::left, Direction::right, Direction::up,
                                       Direction::down};
    const std::size_t place = placeAfter(gesture, GestureType::twoFingerSwipeLeft);
    return performSwipe(fingerCount(place / 4), directions.at(place % 4), chance);
}

Fingers fixAndTap(GestureType gesture, Chance& chance) {
    constexpr std::array sides = {Direction::right, Direction::left, Direction::up,
                                  Direction::down};
    return performFixAndTap(sides.at(placeAfter(gesture, GestureType::fixAndTapRight)), chance);
}

Fingers edgeSwipe(GestureType gesture, Chance& chance) {
    constexpr std::array edges = {Direction::left, Direction::right, Direction::up,
                                  Direction::down};
    return performEdgeSwipe(edges.at(placeAfter(gesture, GestureType::edgeSwipeFromLeft)), chance);
}

Fingers cornerTap(GestureType gesture, Chance& chance) {
    const std::size_t place = placeAfter(gesture, GestureType::cornerTapTopLeft);
    return performCornerTap(place % 2 == 0 ? Direction::left : Direction::right,
                            place < 2 ? Direction::up : Direction::down, chance);
}

Fingers circle(GestureType gesture, Chance& chance) {
    if (gesture == GestureType::drawCircle) {
        return {};
    }
    const bool clockwise = gesture == GestureType::drawCircleClockwise;
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
        return fixAndTap(gesture, chance);
    case GestureCategory::tap:
        return performTap(fingerCount(placeAfter(gesture, GestureType::twoFingerTap)), chance);
    case GestureCategory::doubleTap:
        return performDoubleTap(fingerCount(placeAfter(gesture, GestureType::twoFingerDoubleTap)),
                                chance);
    case GestureCategory::click:
        return {};
    case GestureCategory::swipe:
        return swipe(gesture, chance);
    case GestureCategory::edgeSwipe:
        return edgeSwipe(gesture, chance);
    case GestureCategory::cornerTap:
        return cornerTap(gesture, chance);
    case GestureCategory::pinchRotate:
        return pinchOrRotation(gesture, chance);
    case GestureCategory::longPress:
        return performLongPress(fingerCount(placeAfter(gesture, GestureType::twoFingerLongPress)),
                                chance);
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
    constexpr std::uint64_t apart = 1'000'003; // different gestures of one seed share no choices
    Chance chance(seed * apart + static_cast<std::uint64_t>(position(gesture)));
    const Fingers fingers = fingersFor(gesture, chance);
    return fingers.empty() ? Performance{} : report(fingers, chance);
}

} // namespace glidemap

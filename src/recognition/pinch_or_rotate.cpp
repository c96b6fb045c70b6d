#include "recognition/pinch_or_rotate.h"

#include <cmath>

namespace glidemap {

namespace {

constexpr double smallestDistance = 0.02; // below it the fingers lie on top of each other
constexpr double smallestChange = 0.12; // of the distance: less is no pinch, as much is no rotation
constexpr double spreadRatio = 1.45;
constexpr double closeRatio = 0.7;
constexpr double smallestTurn = 0.7; // radians: about 40 degrees

} // namespace

std::optional<GestureType> pinchOrRotateOf(const Track& first, const Track& second) {
    const PadPoint start = stretched(second.startPos) - stretched(first.startPos);
    const PadPoint end = stretched(second.lastPos) - stretched(first.lastPos);
    const double startDistance = length(start);
    const double endDistance = length(end);
    if (!(startDistance > smallestDistance)) {
        return std::nullopt;
    }
    const double change = std::abs(endDistance - startDistance);
    if (change >= smallestChange) {
        const double ratio = endDistance / startDistance;
        if (ratio >= spreadRatio) {
            return GestureType::pinchOut;
        }
        if (ratio <= closeRatio) {
            return GestureType::pinchIn;
        }
    }
    const double turn = wrapped(angle(end) - angle(start));
    if (!(change < smallestChange) || !(std::abs(turn) >= smallestTurn)) {
        return std::nullopt;
    }
    return turn > 0 ? GestureType::rotateCounterclockwise : GestureType::rotateClockwise;
}

} // namespace glidemap

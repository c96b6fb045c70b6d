#include "recognition/pinch_or_rotate.h"

#include <cmath>

namespace glidemap {

namespace {

constexpr double minDistance = 0.02; // fingers that start closer together make no gesture
// The change of the distance, in units of the pad's height. A smaller change is not a pinch; an
// equal or larger change is not a rotation.
constexpr double minDistanceChange = 0.12;
// Limits for the end distance relative to the start distance.
constexpr double spreadRatio = 1.45;
constexpr double closeRatio = 0.7;
constexpr double minTurn = 0.7; // radians: about 40 degrees

} // namespace

std::optional<GestureType> pinchOrRotateOf(const Track& first, const Track& second) {
    const PadPoint start = stretched(second.startPos) - stretched(first.startPos);
    const PadPoint end = stretched(second.lastPos) - stretched(first.lastPos);
    const double startDistance = length(start);
    const double endDistance = length(end);
    if (!(startDistance > minDistance)) {
        return std::nullopt;
    }
    const double change = std::abs(endDistance - startDistance);
    if (change >= minDistanceChange) {
        const double ratio = endDistance / startDistance;
        if (ratio >= spreadRatio) {
            return GestureType::pinchOut;
        }
        if (ratio <= closeRatio) {
            return GestureType::pinchIn;
        }
    }
    const double turn = wrapped(angle(end) - angle(start));
    if (!(change < minDistanceChange) || !(std::abs(turn) >= minTurn)) {
        return std::nullopt;
    }
    return turn > 0 ? GestureType::rotateCounterclockwise : GestureType::rotateClockwise;
}

} // namespace glidemap

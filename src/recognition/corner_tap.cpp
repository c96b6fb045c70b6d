#include "recognition/corner_tap.h"

namespace glidemap {

namespace {

constexpr double maxDuration = 0.3; // seconds
constexpr double maxTapDrift = 0.03;
constexpr double nearSide = 0.18;
// Not written as 0.82: the computed value is 0.8200000000000001, so a touch at exactly 0.82 is
// outside the corner.
constexpr double farSide = 1 - nearSide;

} // namespace

std::optional<GestureType> cornerTapOf(const Track& track, double duration) {
    if (!(duration <= maxDuration) || !(track.maxDrift <= maxTapDrift)) {
        return std::nullopt;
    }
    const auto [x, y] = track.startPos;
    const bool left = x <= nearSide;
    if (!left && !(x >= farSide)) {
        return std::nullopt;
    }
    if (y >= farSide) {
        return left ? GestureType::cornerTapTopLeft : GestureType::cornerTapTopRight;
    }
    if (y <= nearSide) {
        return left ? GestureType::cornerTapBottomLeft : GestureType::cornerTapBottomRight;
    }
    return std::nullopt;
}

} // namespace glidemap

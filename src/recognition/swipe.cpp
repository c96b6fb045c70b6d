#include "recognition/swipe.h"

#include <algorithm>
#include <cmath>

namespace glidemap {

namespace {

constexpr double maxDuration = 0.8; // seconds
constexpr double minMeanDisplacement = 0.15;
// Minimum ratio of the dominant axis to the other axis. A smaller ratio means a diagonal movement,
// which is not a gesture.
constexpr double dominance = 1.5;

bool allMoveAlong(std::span<const Track> tracks, PadPoint mean) {
    return std::ranges::all_of(
        tracks, [mean](const Track& track) { return dot(track.displacement(), mean) > 0; });
}

std::optional<GestureDirection> directionOf(PadPoint mean) {
    const double horizontal = std::abs(mean.x);
    const double vertical = std::abs(mean.y);
    if (horizontal * dominance > vertical && vertical * dominance > horizontal) {
        return std::nullopt;
    }
    if (vertical * dominance > horizontal) {
        return mean.y > 0 ? GestureDirection::up : GestureDirection::down;
    }
    return mean.x > 0 ? GestureDirection::right : GestureDirection::left;
}

} // namespace

PadPoint meanDisplacement(std::span<const Track> tracks) {
    PadPoint sum;
    for (const Track& track : tracks) {
        sum = sum + track.displacement();
    }
    const auto count = static_cast<double>(tracks.size());
    return {sum.x / count, sum.y / count};
}

std::optional<GestureType> swipeOf(std::span<const Track> tracks, int fingerCount,
                                   double duration) {
    if (tracks.empty() || !(duration <= maxDuration)) {
        return std::nullopt;
    }
    const PadPoint mean = meanDisplacement(tracks);
    if (!(length(mean) >= minMeanDisplacement) || !allMoveAlong(tracks, mean)) {
        return std::nullopt;
    }
    const auto direction = directionOf(mean);
    return direction ? gestureFor(GestureCategory::swipe, fingerCount, *direction) : std::nullopt;
}

} // namespace glidemap

#include "recognition/swipe.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace glidemap {

namespace {

constexpr double longestDuration = 0.8; // seconds
constexpr double shortestMean = 0.15;
// How much longer than the other the dominant axis must be. Between the two lies the diagonal,
// which means nothing.
constexpr double dominance = 1.5;

constexpr int fewestFingers = 2;

struct Directions {
    GestureType left;
    GestureType right;
    GestureType up;
    GestureType down;
};

constexpr std::array<Directions, 4> swipes = {{
    {GestureType::twoFingerSwipeLeft, GestureType::twoFingerSwipeRight,
     GestureType::twoFingerSwipeUp, GestureType::twoFingerSwipeDown},
    {GestureType::threeFingerSwipeLeft, GestureType::threeFingerSwipeRight,
     GestureType::threeFingerSwipeUp, GestureType::threeFingerSwipeDown},
    {GestureType::fourFingerSwipeLeft, GestureType::fourFingerSwipeRight,
     GestureType::fourFingerSwipeUp, GestureType::fourFingerSwipeDown},
    {GestureType::fiveFingerSwipeLeft, GestureType::fiveFingerSwipeRight,
     GestureType::fiveFingerSwipeUp, GestureType::fiveFingerSwipeDown},
}};

std::optional<Directions> directionsFor(int fingerCount) {
    const int row = fingerCount - fewestFingers;
    if (row < 0 || row >= static_cast<int>(swipes.size())) {
        return std::nullopt;
    }
    return swipes[static_cast<std::size_t>(row)];
}

bool allAlong(std::span<const Track> tracks, PadPoint mean) {
    return std::ranges::all_of(
        tracks, [mean](const Track& track) { return dot(track.displacement(), mean) > 0; });
}

std::optional<GestureType> towards(PadPoint mean, const Directions& directions) {
    const double horizontal = std::abs(mean.x);
    const double vertical = std::abs(mean.y);
    if (horizontal * dominance > vertical && vertical * dominance > horizontal) {
        return std::nullopt;
    }
    if (vertical * dominance > horizontal) {
        return mean.y > 0 ? directions.up : directions.down;
    }
    return mean.x > 0 ? directions.right : directions.left;
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
    if (tracks.empty() || !(duration <= longestDuration)) {
        return std::nullopt;
    }
    const PadPoint mean = meanDisplacement(tracks);
    if (!(length(mean) >= shortestMean) || !allAlong(tracks, mean)) {
        return std::nullopt;
    }
    const auto directions = directionsFor(fingerCount);
    return directions ? towards(mean, *directions) : std::nullopt;
}

} // namespace glidemap

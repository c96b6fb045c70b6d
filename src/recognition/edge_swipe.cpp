#include "recognition/edge_swipe.h"

#include <cmath>

namespace glidemap {

namespace {

constexpr double longestDuration = 0.6; // seconds
// A finger that comes from beside the pad is first seen within this rim.
constexpr double lowRim = 0.035;
constexpr double highRim = 0.965;
constexpr double shortestWay = 0.22;
constexpr double steepestSlope = 0.5; // sideways, for each unit inwards

struct Entry {
    GestureType gesture;
    double along;  // inwards from the edge
    double across; // sideways
};

std::optional<Entry> entryFrom(PadPoint start, PadPoint moved) {
    if (start.x <= lowRim && moved.x > 0) {
        return Entry{GestureType::edgeSwipeFromLeft, moved.x, moved.y};
    }
    if (start.x >= highRim && moved.x < 0) {
        return Entry{GestureType::edgeSwipeFromRight, -moved.x, moved.y};
    }
    if (start.y >= highRim && moved.y < 0) {
        return Entry{GestureType::edgeSwipeFromTop, -moved.y, moved.x};
    }
    if (start.y <= lowRim && moved.y > 0) {
        return Entry{GestureType::edgeSwipeFromBottom, moved.y, moved.x};
    }
    return std::nullopt;
}

} // namespace

std::optional<GestureType> edgeSwipeOf(const Track& track, double duration) {
    if (!(duration <= longestDuration)) {
        return std::nullopt;
    }
    const auto entry = entryFrom(track.startPos, track.displacement());
    if (!entry || !(entry->along >= shortestWay) ||
        !(std::abs(entry->across) <= steepestSlope * entry->along)) {
        return std::nullopt;
    }
    return entry->gesture;
}

} // namespace glidemap

#include "recognition/edge_swipe.h"

#include <cmath>

namespace glidemap {

namespace {

constexpr double maxDuration = 0.6; // seconds
// A finger that slides in from outside the pad makes its first contact at or beyond these limits.
constexpr double lowRim = 0.035;
constexpr double highRim = 0.965;
constexpr double minInwardDistance = 0.22;
constexpr double maxSlope = 0.5; // sideways distance per unit inwards

struct Entry {
    GestureType gesture;
    double along;  // distance inwards from the edge
    double across; // sideways distance
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
    if (!(duration <= maxDuration)) {
        return std::nullopt;
    }
    const auto entry = entryFrom(track.startPos, track.displacement());
    if (!entry || !(entry->along >= minInwardDistance) ||
        !(std::abs(entry->across) <= maxSlope * entry->along)) {
        return std::nullopt;
    }
    return entry->gesture;
}

} // namespace glidemap

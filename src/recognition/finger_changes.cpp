#include "recognition/finger_changes.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace glidemap {

// Reserves room for more than two hands, so that later reports do not allocate.
FingerChanges::FingerChanges() {
    constexpr std::size_t usualFingers = 16;
    touching.reserve(usualFingers);
    previous.reserve(usualFingers);
}

std::uint64_t FingerChanges::countWith(const std::vector<TouchPoint>& touches) {
    std::swap(touching, previous);
    touching.clear();
    bool hasPositions = true;
    for (const TouchPoint& touch : touches) {
        if (touch.isTouching) {
            touching.push_back(touch.id);
            hasPositions = hasPositions && std::isfinite(touch.x) && std::isfinite(touch.y);
        }
    }
    if (!isComparable || !hasPositions || touching != previous) {
        ++count;
    }
    isComparable = hasPositions;
    return count;
}

} // namespace glidemap

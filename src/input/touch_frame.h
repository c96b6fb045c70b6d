// The two simplified types that all recognition uses: one finger, and one report of all fingers.
//
// Units:   positions normalised 0..1, origin bottom-left, y upwards; times in seconds.
// Thread:  plain values; a frame is created on the driver's thread and read on the
//          engine's queue.
// Errors:  none. Positions are the driver's and may be out of range or not finite.
#pragma once

#include "input/mt_touch.h"

#include <cstdint>
#include <vector>

namespace glidemap {

struct TouchPoint {
    std::int32_t id = 0;
    double x = 0;
    double y = 0;
    bool isTouching = false;

    friend bool operator==(const TouchPoint&, const TouchPoint&) = default;
};

constexpr TouchPoint touchPoint(const MTTouch& record) {
    return {record.identifier, record.normalized.pos.x, record.normalized.pos.y,
            isTouchingState(record.state)};
}

struct TouchFrame {
    double timestamp = 0; // of the report, not of a single record
    std::vector<TouchPoint> touches;

    // The touching fingers, in order. Empty if no finger is on the pad.
    std::vector<TouchPoint> touching() const;
};

} // namespace glidemap

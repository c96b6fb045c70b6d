// The two simplified types for recognition: one finger, and one report of all fingers.
//
// Units:   positions normalised 0..1, origin bottom-left, y upwards; times in seconds.
// Thread:  plain values; a frame is created on the driver's thread and read on the
//          engine's queue.
// Errors:  none. Positions come from the driver and may be out of range or not finite.
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
    double timestamp = 0; // the time of the report
    std::vector<TouchPoint> touches;

    // Returns the touching fingers, in the order of the report. Empty if no finger touches the pad.
    std::vector<TouchPoint> touching() const;
};

} // namespace glidemap

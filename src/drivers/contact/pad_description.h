// What must be known of a touchpad to turn its slots into contacts: read from the device itself by
// the evdev driver, or from the head of a recording.
//
// Units:   axis values in the device's own units; resolutions in units per millimetre, 0 where
// unknown.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace glidemap {

struct AxisRange {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t resolution = 0;
};

struct PadDescription {
    std::string name;
    std::int32_t slotCount = 0; // how many contacts the pad can tell apart
    AxisRange x;
    AxisRange y;
    // Absent where the pad does not report them.
    std::optional<AxisRange> pressure;
    std::optional<AxisRange> touchMajor;
    std::optional<AxisRange> touchMinor;
    std::optional<AxisRange> orientation;
    bool semiMultitouch = false; // two contacts are the corners of a bounding box
};

} // namespace glidemap

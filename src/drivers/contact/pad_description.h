// The properties of a touchpad that are needed to convert its slots to contacts. The evdev driver
// reads them from the device. For a recording, they come from the description at its start.
//
// Units:   axis values in the device's own units; resolutions in units per millimetre, 0 if
//          unknown.
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
    std::int32_t slotCount = 0; // the number of contacts that the pad can track
    AxisRange x;
    AxisRange y;
    // Each of these axes is nullopt if the pad does not report it.
    std::optional<AxisRange> pressure;
    std::optional<AxisRange> touchMajor;
    std::optional<AxisRange> touchMinor;
    std::optional<AxisRange> orientation;
    bool semiMultitouch = false; // the two slots are the corners of a box around all fingers
};

} // namespace glidemap

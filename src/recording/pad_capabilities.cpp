#include "recording/pad_capabilities.h"

#include <linux/input-event-codes.h>

#include <algorithm>

namespace glidemap {

namespace {

// Real touchpads have fewer than a tenth of these slots. A larger value, which only an invalid
// description contains, is clamped.
constexpr std::int32_t maxSlot = 255;

std::optional<AxisRange> axis(const PadCapabilities& device, std::uint16_t code) {
    const auto found = device.axes.find(code);
    return found != device.axes.end() ? std::optional(found->second) : std::nullopt;
}

} // namespace

std::optional<std::string> describePad(const PadCapabilities& device, PadDescription& pad) {
    const auto slots = axis(device, ABS_MT_SLOT);
    if (!slots) {
        return "the device does not report its contacts in slots (it has no ABS_MT_SLOT)";
    }
    const auto x = axis(device, ABS_MT_POSITION_X);
    const auto y = axis(device, ABS_MT_POSITION_Y);
    if (!x || !y) {
        return "the device does not report contact positions (it has no ABS_MT_POSITION_X or "
               "ABS_MT_POSITION_Y)";
    }
    pad.name = device.name;
    pad.slotCount = std::clamp(slots->maximum, 0, maxSlot) + 1;
    pad.x = *x;
    pad.y = *y;
    pad.pressure = axis(device, ABS_MT_PRESSURE);
    pad.touchMajor = axis(device, ABS_MT_TOUCH_MAJOR);
    pad.touchMinor = axis(device, ABS_MT_TOUCH_MINOR);
    pad.orientation = axis(device, ABS_MT_ORIENTATION);
    pad.semiMultitouch = device.hasProperty(INPUT_PROP_SEMI_MT);
    return std::nullopt;
}

} // namespace glidemap

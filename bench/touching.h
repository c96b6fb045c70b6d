// Contact reports as a driver would hand them over, for fingers spread over the pad.
//
// Units:   positions normalised 0..1, origin bottom-left.
#pragma once

#include "input/mt_touch.h"
#include "input/touch_frame.h"

#include <vector>

namespace glidemap::bench {

using Report = std::vector<MTTouch>;

MTTouch contact(std::int32_t identifier, double x, double y,
                MTTouchState state = MTTouchState::touching);

// Fingers side by side, all of them `offset` to the right of and above where they landed.
Report fingersAt(int count, double offset, std::int32_t firstIdentifier = 1);

// A swipe without end: `length` reports in which all fingers move, there and back, far enough in
// each report for the step to become part of their paths.
std::vector<Report> movingFingers(int count, int length);

TouchFrame frameOf(const Report& report, double timestamp);

} // namespace glidemap::bench

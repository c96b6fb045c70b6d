// Generates contact reports like those of a driver, for fingers spread over the pad.
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

// Returns fingers side by side. Each is shifted by `offset` to the right and upwards from its
// landing position.
Report fingersAt(int count, double offset, std::int32_t firstIdentifier = 1);

// Returns the first `length` reports of an endless swipe, in which all fingers move back and forth.
// Each step is long enough for the recognizer to add it to the finger's path.
std::vector<Report> movingFingers(int count, int length);

TouchFrame frameOf(const Report& report, double timestamp);

} // namespace glidemap::bench

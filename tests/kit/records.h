// Creates contact records like those of a driver.
#pragma once

#include "input/mt_touch.h"
#include "input/touch_frame.h"

#include <cstdint>
#include <vector>

namespace glidemap::test {

// Fills the fields that the program must not read with conspicuous values.
MTTouch record(std::int32_t identifier, double x, double y,
               MTTouchState state = MTTouchState::touching);

std::vector<MTTouch> recordsOf(const TouchFrame& frame);

} // namespace glidemap::test

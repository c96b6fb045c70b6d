// Contact records as a driver would make them.
#pragma once

#include "input/mt_touch.h"
#include "input/touch_frame.h"

#include <cstdint>
#include <vector>

namespace glidemap::kit {

// All the fields that nobody may read hold something that would be noticed.
MTTouch record(std::int32_t identifier, double x, double y,
               MTTouchState state = MTTouchState::touching);

std::vector<MTTouch> recordsOf(const TouchFrame& frame);

} // namespace glidemap::kit

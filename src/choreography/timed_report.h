// One touchpad report of a performance.
//
// Units:   seconds since the beginning of the performance.
#pragma once

#include "input/mt_touch.h"

#include <vector>

namespace glidemap {

struct TimedReport {
    double time = 0;
    std::vector<MTTouch> touches;
};

using Performance = std::vector<TimedReport>;

} // namespace glidemap

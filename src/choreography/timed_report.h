// One report of a touchpad, as a performance passes it to its player.
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

// Arrays of touches that travel from the driver's thread to the engine's queue and back, so that a
// steady stream of frames needs no memory from the system.
//
// Thread:  any; a lock is held for the time of one move.
// Owner:   the engine, shared with the frames that are on their way.
#pragma once

#include "input/touch_frame.h"

#include <cstddef>
#include <mutex>
#include <vector>

namespace glidemap {

class FramePool {
public:
    // An empty array, with memory if there is some to spare.
    std::vector<TouchPoint> take();
    void giveBack(std::vector<TouchPoint> touches);

private:
    // What a busy queue leaves behind, and what no pad reports, goes back to the system.
    static constexpr std::size_t mostArrays = 64;
    static constexpr std::size_t mostTouches = 64;

    std::mutex mutex;
    std::vector<std::vector<TouchPoint>> spare;
};

} // namespace glidemap

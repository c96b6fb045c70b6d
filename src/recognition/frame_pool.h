// Recycles arrays of touches between the driver's thread and the engine's queue, so that a steady
// stream of frames does not allocate.
//
// Thread:  any; locks for the duration of one move.
// Owner:   the engine.
#pragma once

#include "input/touch_frame.h"

#include <cstddef>
#include <mutex>
#include <vector>

namespace glidemap {

class FramePool {
public:
    // Returns an empty array, with spare capacity if available.
    std::vector<TouchPoint> take();
    void giveBack(std::vector<TouchPoint> touches);

private:
    // The pool frees arrays beyond these limits: surplus arrays after the queue was busy, and
    // arrays that are larger than any pad's report.
    static constexpr std::size_t maxSpareArrays = 64;
    static constexpr std::size_t maxSpareTouches = 64;

    std::mutex mutex;
    std::vector<std::vector<TouchPoint>> spare;
};

} // namespace glidemap

#include "recognition/frame_pool.h"

#include <utility>

namespace glidemap {

std::vector<TouchPoint> FramePool::take() {
    const std::lock_guard lock(mutex);
    if (spare.empty()) {
        return {};
    }
    std::vector<TouchPoint> touches = std::move(spare.back());
    spare.pop_back();
    return touches;
}

void FramePool::giveBack(std::vector<TouchPoint> touches) {
    if (touches.capacity() == 0 || touches.capacity() > maxSpareTouches) {
        return;
    }
    touches.clear();
    const std::lock_guard lock(mutex);
    if (spare.size() < maxSpareArrays) {
        spare.push_back(std::move(touches));
    }
}

} // namespace glidemap

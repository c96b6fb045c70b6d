// The single tap that waits because a double tap may follow.
//
// Thread:  hold() and cancel() on the engine's queue; clear() on the thread of delayed
//          work.
#pragma once

#include "core/delayed_work.h"

#include <memory>
#include <mutex>

namespace glidemap {

class HeldTap {
public:
    // Releases an earlier item without cancelling it: that item still fires, because it is a tap
    // with another number of fingers.
    void hold(std::shared_ptr<WorkItem> item);
    void cancel();
    void clear();

private:
    std::shared_ptr<WorkItem> take();

    std::mutex mutex;
    std::shared_ptr<WorkItem> held;
};

} // namespace glidemap

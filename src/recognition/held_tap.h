// A single tap that is delayed because a double tap may follow.
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
    // Replaces an earlier item without cancelling it. The earlier item still fires, because it is a
    // tap with a different number of fingers.
    void hold(std::shared_ptr<WorkItem> item);
    void cancel();
    void clear();

private:
    std::shared_ptr<WorkItem> take();

    std::mutex mutex;
    std::shared_ptr<WorkItem> held;
};

} // namespace glidemap

// The single tap that is being held back because a double tap may follow.
//
// Thread:  the engine's queue holds and cancels; the thread of delayed work clears.
#pragma once

#include "core/delayed_work.h"

#include <memory>
#include <mutex>

namespace glidemap {

class HeldTap {
public:
    // An item held before is let go of, not cancelled: it still fires, being a tap of another
    // number of fingers.
    void hold(std::shared_ptr<WorkItem> item);
    void cancel();
    void clear();

private:
    std::shared_ptr<WorkItem> take();

    std::mutex mutex;
    std::shared_ptr<WorkItem> held;
};

} // namespace glidemap

// Port: runs tasks one after another, in the order of submission, away from the thread that submits
// them.
//
// Thread:  any thread may call; the tasks run on one thread at a time.
// Errors:  none. A queue that is full makes submit() wait until there is room; nothing submitted is
// ever lost but by
//          stop().
#pragma once

#include "core/task.h"

namespace glidemap {

class SerialQueue {
public:
    SerialQueue() = default;
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;
    virtual ~SerialQueue() = default;

    // Returns before the task has run.
    virtual void submit(Task task) = 0;

    // Waits for the task that is running, if any (unless called from it), and destroys those that
    // wait, unrun. No task runs after it returns, until the next submit().
    virtual void stop() = 0;
};

} // namespace glidemap

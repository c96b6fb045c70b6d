// Port: runs tasks one after another, in the order of submission, away from the thread that submits
// them.
//
// Thread:  any thread may call; the tasks run on one thread at a time.
// Errors:  none. When the queue is full, submit() blocks until there is room; only stop()
//          discards tasks.
#pragma once

#include "core/task.h"

#include <utility>

namespace glidemap {

class SerialQueue {
public:
    SerialQueue() = default;
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;
    virtual ~SerialQueue() = default;

    // Returns before the task has run.
    virtual void submit(Task task) = 0;

    // Like submit(), for a task that matters only to later tasks: a sleeping queue may keep it until
    // another task is submitted, or until many tasks are kept. The order stays that of submission.
    virtual void defer(Task task) { submit(std::move(task)); }

    // Waits for the running task, if any (unless called from that task), and destroys pending tasks
    // without running them. No task runs after it returns, until the next submit().
    virtual void stop() = 0;
};

} // namespace glidemap

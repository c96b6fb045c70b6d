// Port: runs tasks one after another, in order of submission, on a thread other than the caller's.
//
// Thread:  any thread may call; the tasks run on one thread at a time.
// Errors:  none. When the queue is full, submit() and defer() block until there is room; only
//          stop() discards tasks.
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

    // Does not wait for the task.
    virtual void submit(Task task) = 0;

    // Like submit(), but need not wake a sleeping queue: the queue may delay the task until another
    // task is submitted or many tasks are pending. Intended for tasks whose only effect is on later
    // tasks. The order of submission is kept.
    virtual void defer(Task task) { submit(std::move(task)); }

    // Waits for the running task, if any (unless called from that task), and destroys pending tasks
    // without running them. After stop() has returned, no task runs until the next submit().
    virtual void stop() = 0;
};

} // namespace glidemap

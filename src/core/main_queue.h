// Port: hands work to the main thread, which runs it later, in the order of submission.
//
// Thread:  any thread may call; the tasks run on the main thread, never from within submit().
// Owner:   the program, which outlives whoever submits. A task holds weakly what may be gone by
// then. Errors:  none. What is submitted after the main thread has stopped listening never runs.
#pragma once

#include "core/task.h"

namespace glidemap {

class MainQueue {
public:
    MainQueue() = default;
    MainQueue(const MainQueue&) = delete;
    MainQueue& operator=(const MainQueue&) = delete;
    virtual ~MainQueue() = default;

    virtual void submit(Task task) = 0;
};

} // namespace glidemap

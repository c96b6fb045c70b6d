// Port: submits tasks to the main thread, which runs them later in order of submission.
//
// Thread:  any thread may call; the tasks run on the main thread, never from within submit().
// Owner:   the program, which outlives all submitters. A task refers weakly to objects
//          that may be destroyed before it runs.
// Errors:  none. Tasks submitted after the main thread has left its event loop never run.
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

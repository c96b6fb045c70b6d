// Runs delayed work on one thread. Scheduling the first item starts the thread. The thread sleeps
// until the next deadline, and never wakes up while nothing is scheduled.
//
// Thread:  any.
// Owner:   any. The object may be destroyed on any thread, even by an item that it runs; that item
//          then completes.
#pragma once

#include "core/delayed_work.h"
#include "platform/common/work_within.h"

#include <functional>
#include <memory>

namespace glidemap {

class ThreadedDelayedWork : public DelayedWork {
public:
    // `prepareThread` runs on the new thread before its first item, to set its name and priority.
    // `within` wraps each item.
    explicit ThreadedDelayedWork(std::function<void()> prepareThread = {},
                                 WorkWithin within = nullptr);
    ~ThreadedDelayedWork() override;

    void schedule(std::shared_ptr<WorkItem> item, double delay) override;
    void stop() override;

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap

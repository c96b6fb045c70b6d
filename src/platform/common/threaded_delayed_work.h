// The real delayed work: one thread, started by the first item, asleep until the next deadline and
// without any wake-up while nothing is scheduled.
//
// Thread:  any.
// Owner:   may be destroyed on any thread, its own included: the item that is running then goes on
// to its end.
#pragma once

#include "core/delayed_work.h"
#include "platform/common/work_within.h"

#include <functional>
#include <memory>

namespace glidemap {

class ThreadedDelayedWork : public DelayedWork {
public:
    // `prepareThread` runs on the new thread before its first item: its name, its priority.
    // `within` is put around each item.
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

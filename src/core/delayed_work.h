// Port: runs an item of work once, after a delay, unless it is cancelled before it starts.
//
// Units:   delays in seconds of real time, or of the virtual time of a test or a replay.
// Thread:  any thread may schedule and cancel; items run on a thread of the implementation.
// Owner:   the scheduling code and the cancelling code share the item. Releasing an item does not
//          cancel it.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace glidemap {

class WorkItem {
public:
    explicit WorkItem(std::function<void()> function) : work(std::move(function)) {}
    WorkItem(const WorkItem&) = delete;
    WorkItem& operator=(const WorkItem&) = delete;

    // Has no effect on an item that has started.
    void cancel() { cancelled.store(true, std::memory_order_relaxed); }

    void perform() {
        if (!cancelled.load(std::memory_order_relaxed)) {
            work();
        }
    }

private:
    std::function<void()> work;
    std::atomic<bool> cancelled = false;
};

class DelayedWork {
public:
    DelayedWork() = default;
    DelayedWork(const DelayedWork&) = delete;
    DelayedWork& operator=(const DelayedWork&) = delete;
    virtual ~DelayedWork() = default;

    virtual void schedule(std::shared_ptr<WorkItem> item, double delay) = 0;

    // Waits for the running item, if any (unless called from that item), and releases pending items
    // without running them. After stop() has returned, no item runs until the next schedule().
    virtual void stop() = 0;
};

} // namespace glidemap

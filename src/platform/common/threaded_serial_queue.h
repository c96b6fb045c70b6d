// Runs tasks in order on one thread. The first task starts the thread. The thread sleeps while the
// queue is empty.
//
// Tasks are stored in a ring buffer, which grows up to a maximum. When it is full, submit() and
// defer() block. Blocking a driver is safe, because the kernel buffers the touchpad's events and
// reports an overflow. Dropping a report is not safe: the fingers may lift in that report.
//
// Thread:  any.
// Owner:   any. The queue may be destroyed on any thread, even by a task that it runs; that task
//          then completes.
#pragma once

#include "core/serial_queue.h"
#include "platform/common/work_within.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace glidemap {

class ThreadedSerialQueue : public SerialQueue {
public:
    static constexpr std::size_t capacity = 1024;

    // The number of queued tasks at which defer() wakes a sleeping thread. A wake-up costs as much
    // as thirty small tasks, and thirty deferred tasks take only a few microseconds.
    static constexpr std::size_t maxDeferred = 32;

    // `prepareThread` runs on the new thread before its first task, to set its name and priority.
    // `within` wraps each task.
    explicit ThreadedSerialQueue(std::function<void()> prepareThread = {},
                                 WorkWithin within = nullptr);
    ~ThreadedSerialQueue() override;

    void submit(Task task) override;
    void defer(Task task) override;
    void stop() override;

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap

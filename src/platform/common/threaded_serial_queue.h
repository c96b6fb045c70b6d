// Runs tasks in order on one thread. The first task starts the thread. The thread sleeps while the
// queue is empty.
//
// Tasks are moved into a ring under a short lock. The ring grows up to a maximum. When it is full,
// submit() and defer() block. A driver may block, because the kernel buffers its events and reports
// an overflow. It must not drop a report, because that could be the report in which the fingers
// lift.
//
// Thread:  any.
// Owner:   any. It may be destroyed on any thread, including its own; the running task then
//          completes.
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

    // The number of deferred tasks that wakes a sleeping thread. A wake-up costs as much as thirty
    // small tasks. When a later task wakes the thread, it catches up within a few microseconds.
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

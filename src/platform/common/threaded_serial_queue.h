// The real serial queue: one thread, started by the first task and asleep while there is none.
//
// Tasks are handed over under a lock held for a few moves of pointers, in a ring that grows to a
// fixed size. A submitter that finds it full waits: a driver that is held up loses nothing, because
// the kernel keeps its events and says so when it cannot, whereas a report that is thrown away
// could be the one in which the fingers leave.
//
// Thread:  any.
// Owner:   may be destroyed on any thread, its own included: the task that is running then goes on
// to its end.
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

    // `prepareThread` runs on the new thread before its first task: its name, its priority.
    // `within` is put around each task.
    explicit ThreadedSerialQueue(std::function<void()> prepareThread = {},
                                 WorkWithin within = nullptr);
    ~ThreadedSerialQueue() override;

    void submit(Task task) override;
    void stop() override;

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap

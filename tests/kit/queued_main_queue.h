// A main queue whose tasks wait until the test runs them, on the thread that it calls its main one.
//
// Thread:  submit() on any, as the port says; the rest on the test's.
#pragma once

#include "core/main_queue.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace glidemap::kit {

class QueuedMainQueue : public MainQueue {
public:
    void submit(Task task) override {
        const std::lock_guard lock(mutex);
        tasks.push_back(std::move(task));
        arrived.notify_all();
    }

    // False if none waits.
    bool runNext() {
        auto task = takeNext();
        if (task) {
            (*task)();
        }
        return task.has_value();
    }

    // Those that tasks submit included.
    void runAll() {
        while (runNext()) {
        }
    }

    // As at the end of the program: what waits is destroyed unrun.
    void discardAll() {
        while (takeNext()) {
        }
    }

    // Until another thread has submitted something that still waits.
    void waitForOne() const {
        std::unique_lock lock(mutex);
        arrived.wait(lock, [this] { return !tasks.empty(); });
    }

    std::size_t waiting() const {
        const std::lock_guard lock(mutex);
        return tasks.size();
    }

private:
    std::optional<Task> takeNext() {
        const std::lock_guard lock(mutex);
        if (tasks.empty()) {
            return std::nullopt;
        }
        std::optional<Task> task(std::move(tasks.front()));
        tasks.pop_front();
        return task;
    }

    mutable std::mutex mutex;
    mutable std::condition_variable arrived;
    std::deque<Task> tasks;
};

} // namespace glidemap::kit

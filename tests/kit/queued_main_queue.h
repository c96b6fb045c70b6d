// A main queue whose tasks wait until the test runs them on its main thread.
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

    // Returns false if no task waits.
    bool runNext() {
        auto task = takeNext();
        if (task) {
            (*task)();
        }
        return task.has_value();
    }

    // Including tasks that these tasks submit.
    void runAll() {
        while (runNext()) {
        }
    }

    // Destroys waiting tasks without running them, as on exit.
    void discardAll() {
        while (takeNext()) {
        }
    }

    // Waits until another thread has submitted a task.
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

// A fake main queue whose tasks wait until the test runs them.
//
// Thread:  submit() on any thread, like the real queue; the other functions on the test's main
//          thread.
#pragma once

#include "core/main_queue.h"
#include "kit/patience.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <utility>

namespace glidemap::test {

class FakeMainQueue : public MainQueue {
public:
    FakeMainQueue() = default;
    // Sets a function that is called for each submission, on the submitting thread. The function
    // must not use the queue.
    explicit FakeMainQueue(std::function<void()> submitted) : onSubmission(std::move(submitted)) {}

    void submit(Task task) override {
        const std::lock_guard lock(mutex);
        tasks.push_back(std::move(task));
        arrived.notify_all();
        if (onSubmission) {
            onSubmission();
        }
    }

    // Runs the oldest task. Returns false if no task is waiting.
    bool runNext() {
        auto task = takeNext();
        if (task) {
            (*task)();
        }
        return task.has_value();
    }

    // Runs all tasks, including those that these tasks submit. Returns the number of tasks.
    std::size_t runAll() {
        std::size_t count = 0;
        while (runNext()) {
            ++count;
        }
        return count;
    }

    // Destroys waiting tasks without running them, as on exit.
    void discardAll() {
        while (takeNext()) {
        }
    }

    // Waits until another thread has submitted a task. Returns false on a time-out.
    bool waitForOne() const {
        std::unique_lock lock(mutex);
        return arrived.wait_for(lock, test::patience, [this] { return !tasks.empty(); });
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

    const std::function<void()> onSubmission;
    mutable std::mutex mutex;
    mutable std::condition_variable arrived;
    std::deque<Task> tasks;
};

} // namespace glidemap::test

#include "platform/common/threaded_serial_queue.h"

#include "platform/common/finish_thread.h"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace glidemap {

namespace {

// A first-in, first-out queue in a ring buffer. The buffer doubles as needed and never shrinks.
class TaskRing {
public:
    std::size_t size() const { return count; }
    bool isEmpty() const { return count == 0; }
    bool isFull() const { return count == ThreadedSerialQueue::capacity; }

    void push(Task&& task) {
        if (count == slots.size()) {
            grow();
        }
        slots[(first + count) % slots.size()] = std::move(task);
        ++count;
    }

    Task pop() {
        Task task = std::move(slots[first]);
        first = (first + 1) % slots.size();
        --count;
        return task;
    }

private:
    void grow() {
        std::rotate(slots.begin(), slots.begin() + static_cast<std::ptrdiff_t>(first), slots.end());
        first = 0;
        slots.resize(std::max<std::size_t>(8, slots.size() * 2));
    }

    std::vector<Task> slots;
    std::size_t first = 0;
    std::size_t count = 0;
};

} // namespace

// The queue shares this state with its thread. If a task destroys the queue, the thread uses the
// state until this task returns.
struct ThreadedSerialQueue::State {
    std::function<void()> prepareThread;
    WorkWithin within = nullptr;
    std::mutex mutex;
    std::condition_variable work;
    std::condition_variable room;
    TaskRing tasks;
    bool isWaiting = false; // the thread waits for tasks
    // stop() increments this number. A thread runs only tasks of its own generation.
    std::uint64_t generation = 0;
    static constexpr std::uint64_t noGeneration = ~std::uint64_t{0};
    // The generation whose task is running. If a task stops its own queue, the queue may be used
    // again before the task returns. The new thread then waits until that task is done.
    std::uint64_t runner = noGeneration;
    std::thread thread;

    void push(const std::shared_ptr<State>& self, Task task, std::size_t tasksThatWake);
    void serve(std::uint64_t own);
    bool takeTask(std::uint64_t own, Task& task);
    void leave(std::unique_lock<std::mutex> lock);
};

// Adds a task. Blocks while the queue is full. Wakes the thread only if at least `tasksThatWake`
// tasks are queued.
void ThreadedSerialQueue::State::push(const std::shared_ptr<State>& self, Task task,
                                      std::size_t tasksThatWake) {
    std::unique_lock lock(mutex);
    const std::uint64_t current = generation;
    room.wait(lock, [&] { return generation != current || !tasks.isFull(); });
    if (generation != current) {
        return; // stop() was called meanwhile: drop this task like the queued tasks
    }
    tasks.push(std::move(task));
    if (!thread.joinable()) {
        thread = std::thread([self, current] { self->serve(current); });
    }
    const bool mustWake = isWaiting && tasks.size() >= tasksThatWake;
    lock.unlock();
    if (mustWake) {
        work.notify_one();
    }
}

void ThreadedSerialQueue::State::serve(std::uint64_t own) {
    if (prepareThread) {
        prepareThread();
    }
    Task task;
    while (takeTask(own, task)) {
        performWithin(within, [&task] {
            task();
            task = Task();
        });
    }
}

// Waits for a task and takes it. Returns false after stop(). From then on, the thread must not
// change `isWaiting`, which belongs to the thread of the next generation.
bool ThreadedSerialQueue::State::takeTask(std::uint64_t own, Task& task) {
    std::unique_lock lock(mutex);
    if (runner == own) {
        runner = noGeneration;
    }
    if (generation != own) {
        leave(std::move(lock));
        return false;
    }
    isWaiting = true;
    work.wait(lock,
              [&] { return generation != own || (runner == noGeneration && !tasks.isEmpty()); });
    if (generation != own) {
        return false;
    }
    isWaiting = false;
    runner = own;
    const bool wasFull = tasks.isFull();
    task = tasks.pop();
    lock.unlock();
    if (wasFull) {
        room.notify_all();
    }
    return true;
}

// Wakes the thread of the next generation, which may be waiting for the last task of this thread.
void ThreadedSerialQueue::State::leave(std::unique_lock<std::mutex> lock) {
    lock.unlock();
    work.notify_all();
}

ThreadedSerialQueue::ThreadedSerialQueue(std::function<void()> prepareThread, WorkWithin within)
    : state(std::make_shared<State>()) {
    state->prepareThread = std::move(prepareThread);
    state->within = within;
}

ThreadedSerialQueue::~ThreadedSerialQueue() {
    ThreadedSerialQueue::stop();
}

void ThreadedSerialQueue::submit(Task task) {
    state->push(state, std::move(task), 1);
}

void ThreadedSerialQueue::defer(Task task) {
    state->push(state, std::move(task), maxDeferred);
}

void ThreadedSerialQueue::stop() {
    std::thread thread;
    {
        // Declared before the lock, so that the tasks are destroyed after unlocking: destructors of
        // captured objects may call back.
        TaskRing dropped;
        const std::lock_guard lock(state->mutex);
        ++state->generation;
        state->isWaiting = false;
        std::swap(dropped, state->tasks);
        std::swap(thread, state->thread);
    }
    state->work.notify_all();
    state->room.notify_all();
    finishThread(thread);
}

} // namespace glidemap

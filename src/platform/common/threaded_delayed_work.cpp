#include "platform/common/threaded_delayed_work.h"

#include "platform/common/finish_thread.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace glidemap {

namespace {

using Clock = std::chrono::steady_clock;

struct Waiting {
    Clock::time_point deadline;
    std::uint64_t number = 0; // items with equal deadlines run in the order of scheduling
    std::shared_ptr<WorkItem> item;
};

// Orders the heap so that the next item to run is on top.
constexpr auto comesLater = [](const Waiting& a, const Waiting& b) {
    return a.deadline != b.deadline ? a.deadline > b.deadline : a.number > b.number;
};

} // namespace

// The object shares this state with its thread. If an item destroys the object, the thread uses the
// state until this item returns.
struct ThreadedDelayedWork::State {
    std::function<void()> prepareThread;
    WorkWithin within = nullptr;
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<Waiting> heap;
    std::uint64_t nextNumber = 0;
    // stop() increments this number. A thread exits when the number differs from the one with which
    // it was started.
    std::uint64_t generation = 0;
    std::thread thread;

    void serve(std::uint64_t own);
    std::shared_ptr<WorkItem> takeDueItem(std::uint64_t own);
};

void ThreadedDelayedWork::State::serve(std::uint64_t own) {
    if (prepareThread) {
        prepareThread();
    }
    while (auto item = takeDueItem(own)) {
        performWithin(within, [&item] {
            item->perform();
            item.reset();
        });
    }
}

// Waits until the next item is due and returns it. Returns null after stop().
std::shared_ptr<WorkItem> ThreadedDelayedWork::State::takeDueItem(std::uint64_t own) {
    std::unique_lock lock(mutex);
    while (generation == own) {
        if (heap.empty()) {
            changed.wait(lock);
        } else if (const auto deadline = heap.front().deadline; Clock::now() < deadline) {
            changed.wait_until(lock, deadline);
        } else {
            std::ranges::pop_heap(heap, comesLater);
            auto item = std::move(heap.back().item);
            heap.pop_back();
            return item;
        }
    }
    return nullptr;
}

ThreadedDelayedWork::ThreadedDelayedWork(std::function<void()> prepareThread, WorkWithin within)
    : state(std::make_shared<State>()) {
    state->prepareThread = std::move(prepareThread);
    state->within = within;
}

ThreadedDelayedWork::~ThreadedDelayedWork() {
    ThreadedDelayedWork::stop();
}

void ThreadedDelayedWork::schedule(std::shared_ptr<WorkItem> item, double delay) {
    const auto wait =
        std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(delay));
    bool comesFirst = false;
    {
        const std::lock_guard lock(state->mutex);
        const std::uint64_t number = state->nextNumber++;
        state->heap.push_back({Clock::now() + wait, number, std::move(item)});
        std::ranges::push_heap(state->heap, comesLater);
        comesFirst = state->heap.front().number == number;
        if (!state->thread.joinable()) {
            state->thread =
                std::thread([shared = state, own = state->generation] { shared->serve(own); });
        }
    }
    if (comesFirst) { // otherwise the thread already wakes up for an earlier item
        state->changed.notify_one();
    }
}

void ThreadedDelayedWork::stop() {
    std::thread thread;
    {
        // Declared before the lock, so that the items are destroyed after unlocking: destructors of
        // captured objects may call back.
        std::vector<Waiting> dropped;
        const std::lock_guard lock(state->mutex);
        ++state->generation;
        std::swap(dropped, state->heap);
        std::swap(thread, state->thread);
    }
    state->changed.notify_all();
    finishThread(thread);
}

} // namespace glidemap

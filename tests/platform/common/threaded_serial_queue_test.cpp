#include "platform/common/threaded_serial_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

// Waits until all tasks submitted so far have run.
void drain(SerialQueue& queue) {
    std::promise<void> reached;
    queue.submit([&reached] { reached.set_value(); });
    reached.get_future().wait();
}

TEST(ThreadedSerialQueue, RunsTasksInSubmissionOrder) {
    ThreadedSerialQueue queue;
    std::vector<int> order;
    for (int number = 0; number < 5000; ++number) {
        queue.submit([&order, number] { order.push_back(number); });
    }
    drain(queue);
    std::vector<int> expected(5000);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(order, expected);
}

TEST(ThreadedSerialQueue, RunsAllTasksOnOneThreadSeparateFromTheSubmitter) {
    ThreadedSerialQueue queue;
    std::vector<std::thread::id> threads(2);
    queue.submit([&] { threads[0] = std::this_thread::get_id(); });
    queue.submit([&] { threads[1] = std::this_thread::get_id(); });
    drain(queue);
    EXPECT_EQ(threads[0], threads[1]);
    EXPECT_NE(threads[0], std::this_thread::get_id());
}

TEST(ThreadedSerialQueue, PreparesThreadBeforeTheFirstTask) {
    std::atomic<std::thread::id> prepared;
    ThreadedSerialQueue queue([&] { prepared = std::this_thread::get_id(); });
    EXPECT_EQ(prepared.load(), std::thread::id());
    std::thread::id worker;
    queue.submit([&] { worker = std::this_thread::get_id(); });
    drain(queue);
    EXPECT_EQ(prepared.load(), worker);
}

std::atomic<int> within = 0;

void countWithin(const std::function<void()>& work) {
    ++within;
    work();
    --within;
}

// Returns an object that records `within` when it is destroyed: 1 inside the wrapper, 0 outside.
std::shared_ptr<void> releasedWithin(std::vector<int>& seen) {
    return {nullptr, [&seen](void*) {
                seen.push_back(within);
            }};
}

TEST(ThreadedSerialQueue, RunsAndDestroysEachTaskInsideTheWrapper) {
    std::vector<int> ran;
    std::vector<int> released;
    ThreadedSerialQueue queue({}, countWithin);
    for (int turn = 0; turn < 2; ++turn) {
        queue.submit([&, capture = releasedWithin(released)] { ran.push_back(within); });
    }
    drain(queue);
    EXPECT_EQ(ran, std::vector({1, 1}));
    EXPECT_EQ(released, std::vector({1, 1}));
}

// Blocks the queue until the test releases it.
struct Blocker {
    std::promise<void> entered;
    std::promise<void> proceed;

    void occupy(SerialQueue& queue) {
        queue.submit([this] {
            entered.set_value();
            proceed.get_future().wait();
        });
        entered.get_future().wait();
    }
};

TEST(ThreadedSerialQueue, DeferredTasksRunBeforeTheNextSubmittedTask) {
    ThreadedSerialQueue queue;
    std::vector<int> order;
    queue.defer([&] { order.push_back(0); });
    drain(queue);
    for (int number = 1; number < 10; ++number) {
        queue.defer([&order, number] { order.push_back(number); });
    }
    drain(queue);
    EXPECT_EQ(order, (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(ThreadedSerialQueue, MaximumNumberOfDeferredTasksWakesTheThread) {
    ThreadedSerialQueue queue;
    drain(queue);
    std::promise<void> reached;
    for (std::size_t count = 1; count < ThreadedSerialQueue::maxDeferred; ++count) {
        queue.defer([] {});
    }
    queue.defer([&reached] { reached.set_value(); });
    reached.get_future().wait();
}

TEST(ThreadedSerialQueue, StopDropsDeferredTasks) {
    ThreadedSerialQueue queue;
    drain(queue);
    bool hasRun = false;
    queue.defer([&hasRun] { hasRun = true; });
    queue.stop();
    drain(queue);
    EXPECT_FALSE(hasRun);
}

TEST(ThreadedSerialQueue, StopWaitsForTheRunningTaskAndDropsQueuedTasks) {
    ThreadedSerialQueue queue;
    Blocker blocker;
    blocker.occupy(queue);
    auto owned = std::make_shared<int>(1);
    const std::weak_ptr<int> capture = owned;
    std::atomic<bool> ran = false;
    queue.submit([held = std::move(owned), &ran] { ran = true; });

    std::atomic<bool> stopped = false;
    std::thread stopper([&] {
        queue.stop();
        stopped = true;
    });
    while (!capture.expired()) {
        std::this_thread::yield(); // waits until stop() has dropped the queued task
    }
    EXPECT_FALSE(stopped.load());
    blocker.proceed.set_value();
    stopper.join();
    EXPECT_FALSE(ran.load());
}

TEST(ThreadedSerialQueue, RunsTasksSubmittedAfterStop) {
    ThreadedSerialQueue queue;
    drain(queue);
    queue.stop();
    queue.stop();
    int runs = 0;
    queue.submit([&runs] { ++runs; });
    drain(queue);
    EXPECT_EQ(runs, 1);
}

TEST(ThreadedSerialQueue, FullQueueBlocksTheSubmitterWithoutLosingTasks) {
    ThreadedSerialQueue queue;
    Blocker blocker;
    blocker.occupy(queue);
    constexpr int extra = 10;
    constexpr int total = static_cast<int>(ThreadedSerialQueue::capacity) + extra;
    std::atomic<int> submitted = 0;
    std::vector<int> order;
    std::thread submitter([&] {
        for (int number = 0; number < total; ++number) {
            queue.submit([&order, number] { order.push_back(number); });
            ++submitted;
        }
    });
    while (submitted.load() < static_cast<int>(ThreadedSerialQueue::capacity)) {
        std::this_thread::yield();
    }
    EXPECT_EQ(submitted.load(), static_cast<int>(ThreadedSerialQueue::capacity));
    blocker.proceed.set_value();
    submitter.join();
    drain(queue);
    std::vector<int> expected(total);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(order, expected);
}

TEST(ThreadedSerialQueue, StopUnblocksABlockedSubmitter) {
    ThreadedSerialQueue queue;
    Blocker blocker;
    blocker.occupy(queue);
    for (std::size_t number = 0; number < ThreadedSerialQueue::capacity; ++number) {
        queue.submit([] {});
    }
    std::atomic<bool> ran = false;
    std::thread submitter([&] { queue.submit([&ran] { ran = true; }); });
    std::thread stopper([&] { queue.stop(); });
    blocker.proceed.set_value();
    stopper.join();
    submitter.join();
    queue.stop();
    SUCCEED(); // reached only if stop() unblocks the submitter
}

TEST(ThreadedSerialQueue, QueueCanBeDestroyedByItsOwnTask) {
    auto queue = std::make_unique<ThreadedSerialQueue>();
    std::promise<void> destroyed;
    ThreadedSerialQueue& reference = *queue;
    std::promise<void> handedOver;
    auto handed = handedOver.get_future().share();
    reference.submit([&, handed] {
        handed.wait();
        queue.reset();
        destroyed.set_value();
    });
    handedOver.set_value();
    destroyed.get_future().wait();
    EXPECT_EQ(queue, nullptr);
}

// The stopped thread still runs its own task while the next thread starts.
TEST(ThreadedSerialQueue, QueueStoppedByItsOwnTaskRunsLaterTasks) {
    for (int round = 0; round < 50; ++round) {
        ThreadedSerialQueue queue;
        std::promise<void> stopped;
        std::promise<void> proceed;
        std::atomic<bool> firstEnded = false;
        queue.submit([&] {
            queue.stop();
            stopped.set_value();
            proceed.get_future().wait();
            firstEnded = true;
        });
        stopped.get_future().wait();
        std::promise<bool> second;
        queue.submit([&] { second.set_value(firstEnded.load()); });
        proceed.set_value();
        EXPECT_TRUE(second.get_future().get()); // tasks run one at a time
        drain(queue);                           // the queue still wakes up
        drain(queue);
    }
}

TEST(ThreadedSerialQueue, DestructionDropsQueuedTasks) {
    auto owned = std::make_shared<int>(1);
    {
        ThreadedSerialQueue queue;
        for (int number = 0; number < 100; ++number) {
            queue.submit([owned] {});
        }
    }
    EXPECT_EQ(owned.use_count(), 1);
}

} // namespace
} // namespace glidemap

#include "kit/patience.h"
#include "platform/common/threaded_delayed_work.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

using Clock = std::chrono::steady_clock;

std::shared_ptr<WorkItem> item(std::function<void()> work) {
    return std::make_shared<WorkItem>(std::move(work));
}

// Returns after `delay`, when all items that were due by then have run.
void waitFor(DelayedWork& work, double delay) {
    std::promise<void> reached;
    work.schedule(item([&reached] { reached.set_value(); }), delay);
    reached.get_future().wait();
}

TEST(ThreadedDelayedWork, ItemDoesNotRunBeforeItsDelay) {
    ThreadedDelayedWork work;
    const auto scheduled = Clock::now();
    Clock::time_point ran;
    work.schedule(item([&ran] { ran = Clock::now(); }), 0.02);
    waitFor(work, 0.02);
    EXPECT_GE(ran - scheduled, std::chrono::milliseconds(20));
}

std::atomic<int> within = 0;

void countWithin(const std::function<void()>& work) {
    ++within;
    work();
    --within;
}

TEST(ThreadedDelayedWork, RunsEachItemInsideTheWrapper) {
    ThreadedDelayedWork work({}, countWithin);
    std::vector<int> ran;
    work.schedule(item([&ran] { ran.push_back(within); }), 0);
    work.schedule(item([&ran] { ran.push_back(within); }), 0);
    waitFor(work, 0);
    EXPECT_EQ(ran, std::vector({1, 1}));
}

TEST(ThreadedDelayedWork, RunsItemsInDeadlineOrder) {
    constexpr std::chrono::milliseconds apart(10);
    std::vector<int> order;
    Clock::duration took{};
    do { // repeats if scheduling took long enough to change the order of the deadlines
        ThreadedDelayedWork work;
        order.clear();
        const auto begun = Clock::now();
        work.schedule(item([&] { order.push_back(3); }), 0.03);
        work.schedule(item([&] { order.push_back(1); }), 0.01);
        work.schedule(item([&] { order.push_back(2); }), 0.02);
        took = Clock::now() - begun;
        waitFor(work, 0.04);
    } while (took >= apart);
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST(ThreadedDelayedWork, LongDelayDoesNotDelayAnItemWithAShorterDelay) {
    ThreadedDelayedWork work;
    work.schedule(item([] {}), 3600);
    std::promise<void> ran;
    work.schedule(item([&ran] { ran.set_value(); }), 0.001);
    EXPECT_EQ(ran.get_future().wait_for(test::patience), std::future_status::ready);
}

// The first item occupies the thread until the second item is cancelled. So the second item cannot
// run before it is cancelled, even on a slow machine.
TEST(ThreadedDelayedWork, CancelledItemDoesNotRun) {
    ThreadedDelayedWork work;
    std::promise<void> cancelling;
    work.schedule(item([&cancelling] { cancelling.get_future().wait(); }), 0);
    std::atomic<bool> ran = false;
    const auto cancelled = item([&ran] { ran = true; });
    work.schedule(cancelled, 0.01);
    cancelled->cancel();
    cancelling.set_value();
    waitFor(work, 0.02);
    EXPECT_FALSE(ran.load());
}

TEST(ThreadedDelayedWork, RunsItemAfterTheCallerReleasesIt) {
    ThreadedDelayedWork work;
    std::promise<void> ran;
    work.schedule(item([&ran] { ran.set_value(); }), 0.001);
    ran.get_future().wait();
}

TEST(ThreadedDelayedWork, StopDestroysPendingItemsBeforeItReturns) {
    ThreadedDelayedWork work;
    auto owned = std::make_shared<int>(1);
    work.schedule(item([owned] {}), 3600);
    ASSERT_EQ(owned.use_count(), 2);
    work.stop();
    EXPECT_EQ(owned.use_count(), 1);
}

TEST(ThreadedDelayedWork, StopWaitsForTheRunningItem) {
    ThreadedDelayedWork work;
    std::promise<void> entered;
    std::atomic<bool> finished = false;
    work.schedule(item([&] {
                      entered.set_value();
                      for (int turn = 0; turn < 1000; ++turn) {
                          std::this_thread::yield();
                      }
                      finished = true;
                  }),
                  0);
    entered.get_future().wait();
    work.stop();
    EXPECT_TRUE(finished.load());
}

TEST(ThreadedDelayedWork, WorkCanBeScheduledAfterStop) {
    ThreadedDelayedWork work;
    waitFor(work, 0);
    work.stop();
    waitFor(work, 0);
}

TEST(ThreadedDelayedWork, CanBeDestroyedByItsOwnItem) {
    auto work = std::make_unique<ThreadedDelayedWork>();
    std::promise<void> handedOver;
    auto handed = handedOver.get_future().share();
    std::promise<void> destroyed;
    work->schedule(item([&, handed] {
                       handed.wait();
                       work.reset();
                       destroyed.set_value();
                   }),
                   0);
    handedOver.set_value();
    destroyed.get_future().wait();
    EXPECT_EQ(work, nullptr);
}

} // namespace
} // namespace glidemap

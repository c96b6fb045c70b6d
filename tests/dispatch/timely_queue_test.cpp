#include "dispatch/timely_queue.h"
#include "kit/fake_main_queue.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using namespace std::chrono_literals;
using IfLate = TimelyQueue::IfLate;
using testing::ElementsAre;
using testing::IsEmpty;

class TimelyQueueTest : public testing::Test {
protected:
    void submit(const std::string& name, IfLate ifLate = IfLate::drop) {
        queue.submit(ifLate, [this, name] { ran.push_back(name); });
    }

    TimelyQueue::Time now{1h};
    std::shared_ptr<FakeMainQueue> mainQueue = std::make_shared<FakeMainQueue>();
    TimelyQueue queue{mainQueue, [this] {
                          return now;
                      }};
    std::vector<std::string> ran;
};

TEST_F(TimelyQueueTest, RunsATaskThatWaitedForUpToTwoSeconds) {
    for (const auto wait : {0ms, 1999ms, 2000ms}) {
        ran.clear();
        submit("task");
        now += wait;
        mainQueue->runAll();
        EXPECT_THAT(ran, ElementsAre("task")) << wait.count();
    }
}

TEST_F(TimelyQueueTest, DropsATaskThatWaitedLongerThanTwoSeconds) {
    submit("task");
    now += 2001ms;
    mainQueue->runAll();
    EXPECT_THAT(ran, IsEmpty());
}

TEST_F(TimelyQueueTest, RunsALateTaskThatMustNotBeDropped) {
    submit("task", IfLate::run);
    now += 1h;
    mainQueue->runAll();
    EXPECT_THAT(ran, ElementsAre("task"));
}

TEST_F(TimelyQueueTest, MeasuresTheWaitOfEachTaskSeparately) {
    submit("first");
    now += 1500ms;
    submit("second");
    now += 1000ms;
    mainQueue->runAll();
    EXPECT_THAT(ran, ElementsAre("second"));
}

TEST_F(TimelyQueueTest, IsStalledAfterATaskHasWaitedOneSecond) {
    EXPECT_FALSE(queue.isStalled());
    now += 1h;
    EXPECT_FALSE(queue.isStalled()) << "nothing waits";
    submit("task");
    EXPECT_FALSE(queue.isStalled());
    now += 999ms;
    EXPECT_FALSE(queue.isStalled());
    now += 1ms;
    EXPECT_TRUE(queue.isStalled());
    submit("another");
    EXPECT_TRUE(queue.isStalled());
}

TEST_F(TimelyQueueTest, IsNotStalledAfterTheWaitingTaskHasStarted) {
    submit("old");
    now += 1s;
    submit("new");
    ASSERT_TRUE(queue.isStalled());
    mainQueue->runNext();
    EXPECT_FALSE(queue.isStalled());
    now += 1s;
    EXPECT_TRUE(queue.isStalled());
    mainQueue->runNext();
    EXPECT_FALSE(queue.isStalled());
}

TEST_F(TimelyQueueTest, QueueIsNotStalledWhileALongTaskRuns) {
    bool stalledMeanwhile = true;
    queue.submit(IfLate::drop, [&] {
        now += 1min; // as in an alert's nested event loop
        stalledMeanwhile = queue.isStalled();
    });
    mainQueue->runAll();
    EXPECT_FALSE(stalledMeanwhile);
}

TEST_F(TimelyQueueTest, DiscardedTaskNoLongerCountsAsWaiting) {
    submit("task");
    now += 1s;
    ASSERT_TRUE(queue.isStalled());
    mainQueue->discardAll();
    EXPECT_FALSE(queue.isStalled());
    EXPECT_THAT(ran, IsEmpty());
}

TEST_F(TimelyQueueTest, TaskMayOutliveTheQueue) {
    auto shortLived = std::make_unique<TimelyQueue>(mainQueue, [this] { return now; });
    shortLived->submit(IfLate::drop, [this] { ran.emplace_back("task"); });
    shortLived.reset();
    mainQueue->runAll();
    EXPECT_THAT(ran, ElementsAre("task"));
}

} // namespace
} // namespace glidemap::test

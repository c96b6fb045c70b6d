#include "platform/virtual/virtual_time.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Records each item and the virtual time at which it ran.
class VirtualTimeTest : public testing::Test {
protected:
    struct Event {
        std::string name;
        double time;
        bool operator==(const Event&) const = default;
        friend void PrintTo(const Event& event, std::ostream* out) {
            *out << event.name << " at " << event.time;
        }
    };

    void submit(std::string name) {
        time.queue()->submit([this, kept = std::move(name)] { record(kept); });
    }

    std::shared_ptr<WorkItem> schedule(const std::string& name, double delay) {
        return scheduleWork(delay, [this, name] { record(name); });
    }

    std::shared_ptr<WorkItem> scheduleWork(double delay, std::function<void()> work) {
        auto item = std::make_shared<WorkItem>(std::move(work));
        time.delayedWork()->schedule(item, delay);
        return item;
    }

    void record(const std::string& name) { events.push_back({name, time.now()}); }

    VirtualTime time;
    std::vector<Event> events;
};

TEST_F(VirtualTimeTest, UptimeIsTheRecordTimePlusAThousandSeconds) {
    EXPECT_EQ(time.clock()->uptime(), 1000);
    time.advanceTo(12.5);
    EXPECT_EQ(time.clock()->uptime(), 1012.5);
}

TEST_F(VirtualTimeTest, RunsItemOnceAtItsDeadline) {
    schedule("item", 0.5);
    time.advanceTo(std::nextafter(0.5, 0.0));
    EXPECT_THAT(events, IsEmpty());
    time.advanceTo(0.5);
    time.advanceTo(9);
    time.runRemaining();
    EXPECT_THAT(events, ElementsAre(Event{"item", 0.5}));
}

TEST_F(VirtualTimeTest, RunsItemsInDeadlineOrderWithTheClockAtTheDeadline) {
    schedule("late", 0.75);
    schedule("early", 0.25);
    schedule("middle", 0.5);
    time.advanceTo(10);
    EXPECT_THAT(events,
                ElementsAre(Event{"early", 0.25}, Event{"middle", 0.5}, Event{"late", 0.75}));
    EXPECT_EQ(time.now(), 10);
}

TEST_F(VirtualTimeTest, RunsItemsWithEqualDeadlinesInSchedulingOrder) {
    schedule("first", 0.5);
    schedule("second", 0.5);
    time.advanceTo(0.25);
    schedule("third", 0.25);
    time.advanceTo(1);
    EXPECT_THAT(events,
                ElementsAre(Event{"first", 0.5}, Event{"second", 0.5}, Event{"third", 0.5}));
}

TEST_F(VirtualTimeTest, ItemScheduledByAnotherItemRunsInTheSameAdvanceIfDue) {
    scheduleWork(0.5, [this] {
        record("parent");
        schedule("due", 0.25);
        schedule("not due", 0.75);
    });
    time.advanceTo(1);
    EXPECT_THAT(events, ElementsAre(Event{"parent", 0.5}, Event{"due", 0.75}));
    time.advanceTo(1.25);
    EXPECT_EQ(events.back(), (Event{"not due", 1.25}));
}

TEST_F(VirtualTimeTest, CancelledItemDoesNotRun) {
    schedule("cancelled", 0.5)->cancel();
    schedule("kept", 0.5);
    time.advanceTo(1);
    EXPECT_THAT(events, ElementsAre(Event{"kept", 0.5}));
}

TEST_F(VirtualTimeTest, RunsItemAfterTheCallerReleasesIt) {
    auto item = schedule("released", 0.5);
    item.reset();
    time.advanceTo(1);
    EXPECT_THAT(events, ElementsAre(Event{"released", 0.5}));
}

TEST_F(VirtualTimeTest, ClockMayGoBackwardsWithoutRunningPendingItems) {
    time.advanceTo(10);
    schedule("from the later time", 0.5);
    time.advanceTo(5);
    EXPECT_EQ(time.clock()->uptime(), 1005);
    schedule("from the earlier time", 0.5);
    time.advanceTo(10);
    EXPECT_THAT(events, ElementsAre(Event{"from the earlier time", 5.5}));
    time.advanceTo(11);
    EXPECT_EQ(events.back(), (Event{"from the later time", 10.5}));
}

TEST_F(VirtualTimeTest, InvalidTimeLeavesTheClockUnchanged) {
    time.advanceTo(3);
    schedule("item", 0.5);
    time.advanceTo(std::nan(""));
    time.advanceTo(std::numeric_limits<double>::infinity());
    EXPECT_EQ(time.now(), 3);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(VirtualTimeTest, ItemWithANegativeDelayIsDueAtTheNextAdvance) {
    schedule("item", -1);
    EXPECT_THAT(events, IsEmpty());
    time.advanceTo(0);
    EXPECT_THAT(events, ElementsAre(Event{"item", 0}));
}

TEST_F(VirtualTimeTest, RunRemainingRunsEveryItem) {
    time.advanceTo(2);
    scheduleWork(0.5, [this] {
        record("parent");
        schedule("child", 100);
    });
    time.runRemaining();
    EXPECT_THAT(events, ElementsAre(Event{"parent", 2.5}, Event{"child", 102.5}));
    EXPECT_EQ(time.now(), 102.5);
}

TEST_F(VirtualTimeTest, RunRemainingWithoutItemsKeepsTheTime) {
    time.advanceTo(2);
    time.runRemaining();
    EXPECT_EQ(time.now(), 2);
}

TEST_F(VirtualTimeTest, NextDeadlineIsTheEarliestItemsDeadline) {
    EXPECT_EQ(time.nextDeadline(), std::numeric_limits<double>::infinity());
    time.advanceTo(1);
    schedule("late", 2);
    schedule("early", 1);
    EXPECT_EQ(time.nextDeadline(), 2);
}

TEST_F(VirtualTimeTest, SubmittedTasksRunInOrderOnRequest) {
    submit("first");
    submit("second");
    EXPECT_THAT(events, IsEmpty());
    time.runSubmitted();
    time.runSubmitted();
    EXPECT_THAT(events, ElementsAre(Event{"first", 0}, Event{"second", 0}));
}

TEST_F(VirtualTimeTest, TaskSubmittedByATaskRunsAfterTheQueuedTasks) {
    time.queue()->submit([this] {
        record("parent");
        for (int count = 0; count < 100; ++count) { // enough to reallocate the storage
            submit("child");
        }
        time.runSubmitted(); // a nested call, which runs no task
        record("end of parent");
    });
    submit("second");
    time.runSubmitted();
    ASSERT_EQ(events.size(), 103U);
    EXPECT_EQ(events[0].name, "parent");
    EXPECT_EQ(events[1].name, "end of parent");
    EXPECT_EQ(events[2].name, "second");
    EXPECT_EQ(events[3].name, "child");
}

TEST_F(VirtualTimeTest, SubmittedTasksRunBeforeTimeAdvances) {
    submit("task");
    schedule("item", 0.5);
    time.advanceTo(1);
    EXPECT_THAT(events, ElementsAre(Event{"task", 0}, Event{"item", 0.5}));
}

TEST_F(VirtualTimeTest, TaskSubmittedByAnItemRunsAtTheItemsTime) {
    scheduleWork(0.5, [this] { submit("task"); });
    schedule("later item", 0.75);
    time.advanceTo(1);
    EXPECT_THAT(events, ElementsAre(Event{"task", 0.5}, Event{"later item", 0.75}));
}

TEST_F(VirtualTimeTest, StopDestroysQueuedTasksAndLaterTasksRun) {
    const auto token = std::make_shared<int>();
    time.queue()->submit([this, token] { record("waiting"); });
    time.queue()->stop();
    EXPECT_EQ(token.use_count(), 1);
    submit("later");
    time.runSubmitted();
    EXPECT_THAT(events, ElementsAre(Event{"later", 0}));
}

TEST_F(VirtualTimeTest, TaskMayStopItsOwnQueue) {
    time.queue()->submit([this] {
        record("stopping");
        time.queue()->stop();
    });
    submit("waiting");
    time.runSubmitted();
    submit("later");
    time.runSubmitted();
    EXPECT_THAT(events, ElementsAre(Event{"stopping", 0}, Event{"later", 0}));
}

TEST_F(VirtualTimeTest, StopDropsPendingItems) {
    const auto token = std::make_shared<int>();
    scheduleWork(0.5, [this, token] { record("waiting"); });
    time.delayedWork()->stop();
    EXPECT_EQ(token.use_count(), 1);
    schedule("later", 0.5);
    time.runRemaining();
    EXPECT_THAT(events, ElementsAre(Event{"later", 0.5}));
}

TEST_F(VirtualTimeTest, MainQueueRunsWhenTheSerialQueueIsEmpty) {
    time.mainQueue()->submit([this] { record("main"); });
    time.queue()->submit([this] {
        time.mainQueue()->submit([this] { record("main later"); });
        submit("second");
        record("first");
    });
    EXPECT_THAT(events, IsEmpty());
    time.runSubmitted();
    EXPECT_THAT(events, ElementsAre(Event{"first", 0}, Event{"second", 0}, Event{"main", 0},
                                    Event{"main later", 0}));
}

TEST_F(VirtualTimeTest, SerialTaskSubmittedByAMainQueueTaskRunsAfterTheMainQueueIsEmpty) {
    time.mainQueue()->submit([this] {
        time.mainQueue()->submit([this] { record("main child"); });
        submit("child");
        time.runSubmitted(); // a nested call, which runs no task
        record("end of main");
    });
    time.runSubmitted();
    EXPECT_THAT(events,
                ElementsAre(Event{"end of main", 0}, Event{"main child", 0}, Event{"child", 0}));
}

TEST_F(VirtualTimeTest, MainQueueTaskSubmittedByAnItemRunsAtTheItemsTime) {
    scheduleWork(0.5, [this] { time.mainQueue()->submit([this] { record("main"); }); });
    schedule("later item", 0.75);
    time.advanceTo(1);
    EXPECT_THAT(events, ElementsAre(Event{"main", 0.5}, Event{"later item", 0.75}));
}

TEST(VirtualTimePorts, PortsMayOutliveVirtualTime) {
    std::shared_ptr<UptimeClock> clock;
    std::shared_ptr<DelayedWork> delayedWork;
    {
        VirtualTime time;
        time.advanceTo(4);
        clock = time.clock();
        delayedWork = time.delayedWork();
    }
    delayedWork->schedule(std::make_shared<WorkItem>([] {}), 1);
    EXPECT_EQ(clock->uptime(), 1004);
}

} // namespace
} // namespace glidemap

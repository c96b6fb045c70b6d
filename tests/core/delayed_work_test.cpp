#include "core/delayed_work.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

TEST(WorkItemTest, PerformsItsWork) {
    int runs = 0;
    WorkItem item([&] { ++runs; });
    EXPECT_EQ(runs, 0);
    item.perform();
    EXPECT_EQ(runs, 1);
}

TEST(WorkItemTest, DoesNothingAfterCancellation) {
    int runs = 0;
    WorkItem item([&] { ++runs; });
    item.cancel();
    item.cancel();
    item.perform();
    EXPECT_EQ(runs, 0);
}

TEST(WorkItemTest, CancellationDoesNotStopStartedWork) {
    bool finished = false;
    std::shared_ptr<WorkItem> item;
    item = std::make_shared<WorkItem>([&] {
        item->cancel();
        finished = true;
    });
    item->perform();
    EXPECT_TRUE(finished);
    item.reset();
}

} // namespace
} // namespace glidemap

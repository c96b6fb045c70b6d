#include "recognition/held_tap.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

class HeldTapTest : public testing::Test {
protected:
    std::shared_ptr<WorkItem> makeItem() {
        return std::make_shared<WorkItem>([this] { ++runs; });
    }

    HeldTap held;
    int runs = 0;
};

TEST_F(HeldTapTest, CancelsTheHeldWorkItem) {
    const auto item = makeItem();
    held.hold(item);
    held.cancel();
    item->perform();
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(item.use_count(), 1);
}

TEST_F(HeldTapTest, HoldingANewerWorkItemReleasesTheOlderOneWithoutCancellingIt) {
    const auto older = makeItem();
    const auto newer = makeItem();
    held.hold(older);
    held.hold(newer);
    EXPECT_EQ(older.use_count(), 1);
    held.cancel();
    older->perform();
    newer->perform();
    EXPECT_EQ(runs, 1);
}

TEST_F(HeldTapTest, ClearReleasesTheWorkItemWithoutCancellingIt) {
    const auto item = makeItem();
    held.hold(item);
    held.clear();
    held.cancel();
    item->perform();
    EXPECT_EQ(runs, 1);
}

TEST_F(HeldTapTest, CancellingWhileEmptyDoesNothing) {
    held.cancel();
    held.clear();
}

} // namespace
} // namespace glidemap

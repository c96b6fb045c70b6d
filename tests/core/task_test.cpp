#include "core/task.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <utility>

namespace glidemap {
namespace {

TEST(TaskTest, RunsItsFunction) {
    int runs = 0;
    Task task = [&runs] {
        ++runs;
    };
    task();
    task();
    EXPECT_EQ(runs, 2);
}

TEST(TaskTest, ReportsWhetherItIsEmpty) {
    Task task;
    EXPECT_FALSE(task);
    task = [] {
    };
    EXPECT_TRUE(task);
    const Task other = std::move(task);
    EXPECT_FALSE(task); // NOLINT(bugprone-use-after-move): a moved-from task is empty
    EXPECT_TRUE(other);
}

TEST(TaskTest, HoldsMoveOnlyCaptures) {
    int result = 0;
    Task task = [&result, owned = std::make_unique<int>(7)] {
        result = *owned;
    };
    Task moved = std::move(task);
    moved();
    EXPECT_EQ(result, 7);
}

TEST(TaskTest, DestroysItsCapturesEvenIfItNeverRan) {
    const auto captured = std::make_shared<int>();
    {
        const Task task = [captured] {
        };
    }
    EXPECT_EQ(captured.use_count(), 1);
}

TEST(TaskTest, AssignmentDestroysTheOldCaptures) {
    const auto captured = std::make_shared<int>();
    Task task = [captured] {
    };
    task = Task([] {});
    EXPECT_EQ(captured.use_count(), 1);
}

TEST(TaskTest, MovingDoesNotCopyTheCaptures) {
    const auto captured = std::make_shared<int>();
    Task task = [captured] {
    };
    Task second = std::move(task);
    Task third;
    third = std::move(second);
    EXPECT_EQ(captured.use_count(), 2);
}

TEST(TaskTest, StoresCapturesUpToItsCapacity) {
    std::array<unsigned char, Task::capacity - sizeof(void*)> filler{};
    filler.back() = 9;
    int result = 0;
    Task task = [filler, &result] {
        result = filler.back();
    };
    Task moved = std::move(task);
    moved();
    EXPECT_EQ(result, 9);
}

} // namespace
} // namespace glidemap

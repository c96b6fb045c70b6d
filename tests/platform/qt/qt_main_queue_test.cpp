#include "application.h"
#include "platform/qt/qt_main_queue.h"

#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

using test::Application;

TEST(QtMainQueueTest, RunsTasksInOrderOnTheMainThreadAndNeverInsideSubmit) {
    Application application;
    QtMainQueue queue;
    std::vector<int> order;
    const auto main = std::this_thread::get_id();
    for (int number = 0; number < 100; ++number) {
        queue.submit([&, number] {
            EXPECT_EQ(std::this_thread::get_id(), main);
            order.push_back(number);
        });
    }
    queue.submit([&] {
        queue.submit([&] {
            order.push_back(101);
            Application::quit();
        });
        order.push_back(100);
    });
    EXPECT_EQ(order, std::vector<int>());
    application.run();
    ASSERT_EQ(order.size(), 102U);
    for (int number = 0; number < 102; ++number) {
        EXPECT_EQ(order[static_cast<std::size_t>(number)], number);
    }
}

TEST(QtMainQueueTest, KeepsTheTaskOrderOfEachSubmittingThread) {
    constexpr int threads = 4;
    constexpr int tasks = 2000;
    Application application;
    QtMainQueue queue;
    std::vector<std::vector<int>> orders(threads);
    int left = threads * tasks;
    std::latch start(threads);
    std::vector<std::thread> submitters;
    for (auto& order : orders) {
        submitters.emplace_back([&] {
            start.arrive_and_wait();
            for (int number = 0; number < tasks; ++number) {
                queue.submit([&, number] {
                    order.push_back(number);
                    if (--left == 0) {
                        Application::quit();
                    }
                });
            }
        });
    }
    application.run();
    for (std::thread& each : submitters) {
        each.join();
    }
    for (const auto& order : orders) {
        ASSERT_EQ(order.size(), static_cast<std::size_t>(tasks));
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    }
}

TEST(QtMainQueueTest, RunsAMoveOnlyTaskAndDestroysItBeforeTheNextTask) {
    Application application;
    QtMainQueue queue;
    auto held = std::make_unique<int>(7);
    const auto counted = std::make_shared<int>();
    queue.submit([held = std::move(held), counted] {
        EXPECT_EQ(*held, 7);
        EXPECT_EQ(counted.use_count(), 2);
    });
    queue.submit([&] {
        EXPECT_EQ(counted.use_count(), 1);
        Application::quit();
    });
    application.run();
}

TEST(QtMainQueueTest, EventLoopExitDestroysPendingTasks) {
    Application application;
    QtMainQueue queue;
    const auto counted = std::make_shared<int>();
    queue.submit([&] {
        queue.submit([counted] { ADD_FAILURE() << "the task has run"; });
        QCoreApplication::exit();
    });
    application.run();
    EXPECT_EQ(counted.use_count(), 1);

    queue.submit([counted] { ADD_FAILURE() << "the task has run"; });
    EXPECT_EQ(counted.use_count(), 1);
    QCoreApplication::processEvents();
}

TEST(QtMainQueueTest, QueueDestructionDestroysPendingTasks) {
    Application application;
    const auto counted = std::make_shared<int>();
    {
        QtMainQueue queue;
        queue.submit([counted] { ADD_FAILURE() << "the task has run"; });
        EXPECT_EQ(counted.use_count(), 2);
    }
    EXPECT_EQ(counted.use_count(), 1);
    QCoreApplication::processEvents();
}

} // namespace
} // namespace glidemap

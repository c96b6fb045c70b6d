#include "kit/patience.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <gmock/gmock.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

// Counts events on the thread; the test waits for them.
class Signals {
public:
    void give() {
        const std::lock_guard lock(mutex);
        ++given;
        changed.notify_all();
    }

    bool come(int count) {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, test::patience, [&] { return given >= count; });
    }

    int count() {
        const std::lock_guard lock(mutex);
        return given;
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    int given = 0;
};

// A descriptor that the test makes readable.
class Bell {
public:
    Bell() : descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;
    ~Bell() { close(descriptor); }

    void ring() const { EXPECT_EQ(eventfd_write(descriptor, 1), 0); }

    void answer() const {
        std::uint64_t count = 0;
        EXPECT_EQ(eventfd_read(descriptor, &count), 0);
    }

    const int descriptor;
};

TEST(DesktopThread, RunsTasksInOrderOnOneThread) {
    std::vector<int> done;
    std::vector<std::thread::id> threads;
    {
        DesktopThread thread;
        for (int number = 0; number < 1000; ++number) {
            thread.submit([&, number] {
                done.push_back(number);
                threads.push_back(std::this_thread::get_id());
            });
        }
    }
    ASSERT_EQ(done.size(), 1000U) << "all tasks, even those submitted just before the end";
    for (int number = 0; number < 1000; ++number)
        EXPECT_EQ(done[static_cast<std::size_t>(number)], number);
    EXPECT_THAT(threads, testing::Each(threads.front()));
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST(DesktopThread, CallReturnsWhenItsTaskIsDone) {
    DesktopThread thread;
    std::vector<int> done;
    thread.submit([&] { done.push_back(1); });
    thread.call([&] { done.push_back(2); });
    EXPECT_THAT(done, ElementsAre(1, 2));
}

TEST(DesktopThread, TaskMaySubmitMoreTasks) {
    DesktopThread thread;
    Signals signals;
    thread.submit([&] { thread.submit([&] { signals.give(); }); });
    EXPECT_TRUE(signals.come(1));
}

TEST(DesktopThread, AcceptsTasksFromManyThreads) {
    DesktopThread thread;
    int done = 0; // written only on the desktop thread
    std::vector<std::thread> others;
    for (int other = 0; other < 4; ++other) {
        others.emplace_back([&] {
            for (int number = 0; number < 500; ++number)
                thread.submit([&] { ++done; });
        });
    }
    for (std::thread& other : others)
        other.join();
    thread.call([] {});
    EXPECT_EQ(done, 2000);
}

TEST(DesktopThread, DestroysCapturesAfterTheTask) {
    const auto captured = std::make_shared<int>(1);
    DesktopThread thread;
    thread.submit([captured] {});
    thread.call([] {});
    thread.call([] {}); // in case the captures are destroyed only after the next task
    EXPECT_EQ(captured.use_count(), 1);
}

TEST(DesktopThread, ReportsAReadableDescriptor) {
    const Bell bell;
    Signals signals;
    DesktopThread thread;
    DesktopThread::Watch watch;
    thread.call([&] {
        watch = thread.watch(bell.descriptor, [&] {
            bell.answer();
            signals.give();
        });
    });
    bell.ring();
    EXPECT_TRUE(signals.come(1));
    bell.ring();
    EXPECT_TRUE(signals.come(2));
    thread.call([&] { watch = {}; });
    bell.ring();
    thread.call([] {});
    EXPECT_EQ(signals.count(), 2) << "the watch has ended";
}

TEST(DesktopThread, ReportsAClosedPeer) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    Signals signals;
    DesktopThread thread;
    DesktopThread::Watch watch;
    thread.call([&] {
        watch = thread.watch(ends[0], [&] {
            watch = {}; // otherwise the thread would report the closed peer repeatedly
            signals.give();
        });
    });
    close(ends[1]);
    EXPECT_TRUE(signals.come(1));
    thread.call([] {});
    EXPECT_EQ(signals.count(), 1);
    close(ends[0]);
}

TEST(DesktopThread, CallbackMayCancelItsOwnWatch) {
    const Bell bell;
    Signals signals;
    DesktopThread thread;
    DesktopThread::Watch watch;
    auto captured = std::make_shared<int>(7);
    const std::weak_ptr<int> alive = captured;
    int seen = 0;
    thread.call([&] {
        watch = thread.watch(bell.descriptor, [&, kept = std::move(captured)] {
            watch = {};
            seen = *kept;
            signals.give();
        });
    });
    bell.ring();
    EXPECT_TRUE(signals.come(1));
    thread.call([] {});
    EXPECT_EQ(seen, 7);
    EXPECT_TRUE(alive.expired());
}

TEST(DesktopThread, MovedWatchStillRunsItsCallback) {
    const Bell bell;
    Signals signals;
    DesktopThread thread;
    std::optional<DesktopThread::Watch> moved;
    thread.call([&] {
        DesktopThread::Watch watch = thread.watch(bell.descriptor, [&] {
            bell.answer();
            signals.give();
        });
        moved.emplace(std::move(watch));
    });
    bell.ring();
    EXPECT_TRUE(signals.come(1));
    thread.call([&] { moved.reset(); });
}

TEST(DesktopThread, RunsADelayedFunctionOnceAndNotEarly) {
    Signals signals;
    DesktopThread thread;
    DesktopThread::Watch watch;
    std::chrono::steady_clock::time_point due;
    const auto begin = std::chrono::steady_clock::now();
    thread.call([&] {
        watch = thread.after(20ms, [&] {
            due = std::chrono::steady_clock::now();
            signals.give();
        });
    });
    EXPECT_TRUE(signals.come(1));
    EXPECT_GE(due - begin, 20ms);
    thread.call([&] { watch = thread.after(0ms, [&] { signals.give(); }); });
    EXPECT_TRUE(signals.come(2));
    EXPECT_EQ(signals.count(), 2);
    thread.call([&] { watch = {}; });
}

TEST(DesktopThread, CancelledDelayedFunctionDoesNotRun) {
    Signals signals;
    Signals later;
    DesktopThread thread;
    DesktopThread::Watch watch;
    DesktopThread::Watch after;
    thread.call([&] {
        watch = thread.after(1ms, [&] { signals.give(); });
        watch = {};
        after = thread.after(2ms, [&] { later.give(); });
    });
    EXPECT_TRUE(later.come(1));
    EXPECT_EQ(signals.count(), 0);
    thread.call([&] { after = {}; });
}

} // namespace
} // namespace glidemap

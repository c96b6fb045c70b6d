// Counts how often reports wake the engine's thread. Of the reports that cannot complete a gesture,
// at most one in 32 may wake it.
#include "bench/headless_pipeline.h"
#include "bench/thread_watch.h"
#include "platform/common/threaded_serial_queue.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

namespace glidemap::bench {

namespace {

class WakeUps {
public:
    // Returns how often the engine's thread has gone to sleep while `count` reports arrived. Each
    // report is sent while the thread is asleep.
    std::int64_t during(std::size_t count, int contacts) {
        const auto reports = movingFingers(contacts, 128);
        const std::int64_t before = sleeps();
        for (std::size_t index = 0; index < count; ++index) {
            HeadlessPipeline::push(reports[index % reports.size()], time += 0.008);
            threads.waitUntilSleeping();
        }
        return sleeps() - before;
    }

private:
    std::int64_t sleeps() {
        for (const ThreadSwitches& each : switchesOfAllThreads()) {
            if (each.thread == threads.queueThreadId()) {
                return each.voluntary;
            }
        }
        ADD_FAILURE() << "the engine's thread is gone";
        return 0;
    }

    RealThreads threads;
    HeadlessPipeline pipeline{threads.ports()};
    double time = 1;
};

} // namespace

TEST(WakeUps, MovingFingersWakeTheEngineAtMostOnceIn32Reports) {
    constexpr std::size_t count = 640;
    for (const int contacts : {1, 2, 5}) {
        WakeUps wakeUps;
        wakeUps.during(200, contacts); // fingers land and drift too far for a long press
        EXPECT_LE(wakeUps.during(count, contacts), count / ThreadedSerialQueue::maxDeferred)
            << contacts;
    }
}

} // namespace glidemap::bench

// After a few sessions, the pipeline may allocate at most once per report on the driver's thread,
// for the report's copy. On the engine's queue, it must never allocate, not even to look up a
// binding.
#include "bench/allocation_count.h"
#include "bench/headless_pipeline.h"
#include "bench/performance_script.h"
#include "bindings/binding_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>

namespace glidemap::bench {

namespace {

// Sends reports in place of the driver. Counts the allocations on the driver's thread and on the
// engine's thread.
class CountedPipeline {
public:
    void push(const Report& report, double timestamp) {
        const std::int64_t before = allocationsOfThisThread();
        HeadlessPipeline::push(report, timestamp);
        const std::int64_t own = allocationsOfThisThread() - before;
        const std::int64_t engineTotal = threads.callOnQueueThread(allocationsOfThisThread);
        maxByDriver = std::max(maxByDriver, own);
        byEngine += engineTotal - lastEngineTotal;
        lastEngineTotal = engineTotal;
    }

    void forget() {
        maxByDriver = 0;
        byEngine = 0;
    }

    std::int64_t maxByDriver = 0; // per report
    std::int64_t byEngine = 0;    // in total

private:
    RealThreads threads;
    HeadlessPipeline pipeline{threads.ports()};
    std::int64_t lastEngineTotal = threads.callOnQueueThread(allocationsOfThisThread);
};

TEST(AllocationCount, CountsTheAllocationsOfAThread) {
    const std::int64_t before = allocationsOfThisThread();
    const Report report = fingersAt(1, 0);
    EXPECT_GE(allocationsOfThisThread() - before, 1);
    EXPECT_EQ(report.size(), 1U);
}

TEST(AllocationCount, CountsTheAllocationsOfTheQueuesThread) {
    const RealThreads threads;
    const std::int64_t before = threads.callOnQueueThread(allocationsOfThisThread);
    threads.callOnQueueThread([] { return static_cast<std::int64_t>(fingersAt(3, 0).size()); });
    EXPECT_GE(threads.callOnQueueThread(allocationsOfThisThread) - before, 1);
}

struct Row {
    const char* name;
    int contacts;
};

std::ostream& operator<<(std::ostream& stream, const Row& row) {
    return stream << row.name;
}

class Frames : public testing::TestWithParam<Row> {};

TEST_P(Frames, OfASessionAllocateAtMostOncePerFrameOnTheDriversThreadAndNeverOnTheEngines) {
    constexpr int pathsAreFullAfter = 2'200;
    CountedPipeline pipeline;
    double time = 1;
    const auto reports = movingFingers(GetParam().contacts, 128);
    const auto play = [&](int count) {
        for (int index = 0; index < count; ++index) {
            pipeline.push(reports[static_cast<std::size_t>(index) % reports.size()], time += 0.008);
        }
    };
    play(pathsAreFullAfter);
    pipeline.forget();
    play(1'000);
    EXPECT_LE(pipeline.maxByDriver, 1);
    EXPECT_EQ(pipeline.byEngine, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, Frames,
                         testing::Values(Row{"no_contact", 0}, Row{"one_contact", 1},
                                         Row{"five_contacts", 5}, Row{"eleven_contacts", 11}),
                         [](const auto& row) { return row.param.name; });

TEST(MixedTouching, AllocatesAtMostOncePerReportOnTheDriversThreadAndNeverOnTheEngines) {
    CountedPipeline pipeline;
    PerformanceScript script(
        [&](const Report& report, double timestamp) { pipeline.push(report, timestamp); });
    script.playMixed(120);
    pipeline.forget();
    script.playMixed(120);
    EXPECT_LE(pipeline.maxByDriver, 1);
    EXPECT_EQ(pipeline.byEngine, 0);
}

// The session has more touches than a track list has room for, so old tracks are dropped many
// times.
TEST(AnEndlessSession, AllocatesAtMostOncePerReportOnTheDriversThreadAndNeverOnTheEngines) {
    CountedPipeline pipeline;
    PerformanceScript script(
        [&](const Report& report, double timestamp) { pipeline.push(report, timestamp); });
    script.tapBesideRestingFinger(300);
    pipeline.forget();
    script.tapBesideRestingFinger(300);
    EXPECT_LE(pipeline.maxByDriver, 1);
    EXPECT_EQ(pipeline.byEngine, 0);
}

// The array that is passed to the engine has room for two hands from the start and never grows.
TEST(AFirstReport, AllocatesAtMostItsCopyAndOneArrayForTheEngine) {
    CountedPipeline pipeline;
    pipeline.push(fingersAt(1, 0), 1);
    EXPECT_LE(pipeline.maxByDriver, 2);
    pipeline.forget();
    pipeline.push(fingersAt(5, 0), 1.008);
    EXPECT_LE(pipeline.maxByDriver, 1);
}

// A gesture's action waits for match() and doubleTapBindingExists(), so they must be fast and must
// not allocate.
TEST(TheStore, FindsABindingAmongAThousandWithoutAllocating) {
    // /dev/null is not a folder, so saving fails and the list stays in memory.
    BindingStore store([] { return std::filesystem::path("/dev/null"); });
    BindingList list;
    for (int number = 0; number < 1'000; ++number) {
        const bool global = number % 2 == 0;
        list.push_back({.gesture = allGestureTypes[static_cast<std::size_t>(number) % 48],
                        .action = LaunchApp{"org.example.desktop.launched.App", "Launched"},
                        .scope = global ? BindingScope(GlobalScope{})
                                        : AppScope{"org.example.desktop.frontmost.App" +
                                                       std::to_string(number % 100),
                                                   "Frontmost"}});
    }
    store.setBindings(list);

    const std::int64_t before = allocationsOfThisThread();
    int found = 0;
    for (const GestureType gesture : allGestureTypes) {
        for (const char* app : {"org.example.desktop.frontmost.App7", "org.example.None"}) {
            found += store.match(gesture, app) != nullptr ? 1 : 0;
        }
        found += store.match(gesture, std::nullopt) != nullptr ? 1 : 0;
    }
    int doubleTaps = 0;
    for (int fingerCount = 1; fingerCount <= 5; ++fingerCount) {
        doubleTaps += store.doubleTapBindingExists(fingerCount) ? 1 : 0;
    }
    EXPECT_EQ(allocationsOfThisThread() - before, 0);
    EXPECT_GE(found, 48);
    EXPECT_EQ(doubleTaps, 3);
}

} // namespace

} // namespace glidemap::bench

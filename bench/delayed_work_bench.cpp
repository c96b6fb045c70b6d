// Measures the cost of delaying a tap: scheduling the work item, and how late it runs.
#include "core/delayed_work.h"
#include "pipeline_bench.h"
#include "platform/common/threaded_delayed_work.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace glidemap::bench {

namespace {

constexpr double farAway = 3600; // seconds
constexpr int batch = 64;

std::shared_ptr<WorkItem> idleItem() {
    return std::make_shared<WorkItem>([] {});
}

// The thread already waits for an earlier item, so it need not rearm its timer.
void scheduleBehindAnother(benchmark::State& state) {
    ThreadedDelayedWork work;
    std::vector<std::shared_ptr<WorkItem>> items(batch);
    while (state.KeepRunningBatch(batch)) {
        work.schedule(idleItem(), farAway);
        for (auto& item : items) {
            item = idleItem();
        }
        const Moment start = now();
        for (auto& item : items) {
            work.schedule(std::move(item), 2 * farAway);
        }
        const Moment end = now();
        work.stop();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
}

// Each item is due before all pending items, so the thread must rearm its timer.
void scheduleFirst(benchmark::State& state) {
    ThreadedDelayedWork work;
    double delay = farAway;
    for ([[maybe_unused]] auto _ : state) {
        auto item = idleItem();
        const Moment start = now();
        work.schedule(std::move(item), delay -= 0.001);
        const Moment end = now();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
}

// Measures the time from when an item is due until it runs.
void lateness(benchmark::State& state) {
    constexpr double delay = 0.001;
    ThreadedDelayedWork work;
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    Moment ran;
    std::atomic<bool> done = false;
    for ([[maybe_unused]] auto _ : state) {
        done = false;
        auto item = std::make_shared<WorkItem>([&ran, &done] {
            ran = now();
            done = true;
            done.notify_one();
        });
        const Moment due = now() + std::chrono::duration_cast<Moment::duration>(
                                       std::chrono::duration<double>(delay));
        work.schedule(std::move(item), delay);
        done.wait(false);
        samples.add(due, ran);
        state.SetIterationTime(std::chrono::duration<double>(ran - due).count());
    }
    reportQuantiles(state, samples);
}

} // namespace

void registerDelayedWorkBenchmarks(int samples) {
    benchmark::RegisterBenchmark("delayed/schedule_behind_another", scheduleBehindAnother)
        ->UseManualTime()
        ->Iterations(samples / batch * batch + batch);
    benchmark::RegisterBenchmark("delayed/schedule_first", scheduleFirst)
        ->UseManualTime()
        ->Iterations(samples);
    benchmark::RegisterBenchmark("delayed/lateness", lateness)
        ->UseManualTime()
        ->Iterations(samples / 10 + 1);
}

} // namespace glidemap::bench

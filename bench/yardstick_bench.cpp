// Measures the cost of operations that no program can avoid, in the same run as the pipeline. If a
// figure of the pipeline and its reference here are slow by the same factor, the machine is the
// cause.
//
//   copy      only the allocation and the copy of a report
//   lock      one uncontended lock; the pipeline takes four locks for each report
//   wake      a bare condition variable: the waker's cost, and the delay until the waiter runs
#include "bench/pace.h"
#include "bench/thread_watch.h"
#include "bench/touching.h"
#include "pipeline_bench.h"
#include "platform/linux/thread_setup.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace glidemap::bench {

namespace {

void clockCost(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(now());
    }
}

void processorClockCost(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(processorTimeOfThisThread());
    }
}

void copyOfReport(benchmark::State& state) {
    const Report report = fingersAt(static_cast<int>(state.range(0)), 0);
    for ([[maybe_unused]] auto _ : state) {
        Report copy(report.begin(), report.end());
        benchmark::DoNotOptimize(copy.data());
    }
}

void uncontendedLock(benchmark::State& state) {
    std::mutex mutex;
    std::thread([] {}).join(); // in a single-threaded process, libc takes locks more cheaply
    for ([[maybe_unused]] auto _ : state) {
        const std::lock_guard lock(mutex);
        benchmark::ClobberMemory();
    }
}

// A thread that waits on a condition variable and records when it runs again.
class Sleeper {
public:
    Sleeper() : thread([this] { serve(); }) {
        while (id == 0) {
            std::this_thread::yield();
        }
        watch.emplace(id);
    }
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;

    ~Sleeper() {
        {
            const std::lock_guard lock(mutex);
            stopping = true;
        }
        condition.notify_one();
        thread.join();
    }

    void waitUntilAsleep() const {
        while (!watch->sleeps()) {
            std::this_thread::yield();
        }
    }

    void wake() {
        {
            const std::lock_guard lock(mutex);
            ++submitted;
        }
        condition.notify_one();
    }

    bool hasRun() const { return ran.load(std::memory_order_acquire) == submitted; }
    Moment lastRun() const { return moment; }

private:
    void serve() {
        setUpResponsiveThread("sleeper");
        id = thisThread();
        std::unique_lock lock(mutex);
        while (!stopping) {
            condition.wait(lock, [&] { return stopping || ran != submitted; });
            moment = now();
            ran.store(submitted, std::memory_order_release);
        }
    }

    std::mutex mutex;
    std::condition_variable condition;
    bool stopping = false;
    int submitted = 0;
    Moment moment;
    std::atomic<int> ran = 0;
    std::atomic<pid_t> id = 0;
    std::optional<SleepWatch> watch;
    std::thread thread;
};

void wakeCost(benchmark::State& state) {
    Sleeper sleeper;
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    Samples own(static_cast<std::size_t>(state.max_iterations));
    for ([[maybe_unused]] auto _ : state) {
        sleeper.waitUntilAsleep();
        const double before = processorTimeOfThisThread();
        const Moment start = now();
        sleeper.wake();
        const Moment end = now();
        own.add(processorTimeOfThisThread() - before);
        while (!sleeper.hasRun()) {
            std::this_thread::yield();
        }
        samples.add(start, end);
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    reportQuantiles(state, samples);
    state.counters["own_ns"] = own.quantile(0.5);
}

void wakeLatency(benchmark::State& state) {
    Sleeper sleeper;
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    for ([[maybe_unused]] auto _ : state) {
        sleeper.waitUntilAsleep();
        const Moment start = now();
        sleeper.wake();
        while (!sleeper.hasRun()) {
            std::this_thread::yield();
        }
        samples.add(start, sleeper.lastRun());
        state.SetIterationTime(std::chrono::duration<double>(sleeper.lastRun() - start).count());
    }
    reportQuantiles(state, samples);
}

void pacedWakeLatency(benchmark::State& state) {
    Sleeper sleeper;
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    const Pace pace;
    for ([[maybe_unused]] auto _ : state) {
        pace.waitForNextReport();
        const Moment start = now();
        sleeper.wake();
        while (!sleeper.hasRun()) {
            pace.waitForNextReport();
        }
        samples.add(start, sleeper.lastRun());
        state.SetIterationTime(std::chrono::duration<double>(sleeper.lastRun() - start).count());
    }
    reportQuantiles(state, samples);
}

} // namespace

void registerYardsticks(int samples, int pacedSamples) {
    benchmark::RegisterBenchmark("yardstick/clock", clockCost);
    benchmark::RegisterBenchmark("yardstick/processor_clock", processorClockCost);
    for (const int fingers : {1, 5, 11}) {
        benchmark::RegisterBenchmark("yardstick/copy", copyOfReport)->Arg(fingers);
    }
    benchmark::RegisterBenchmark("yardstick/lock", uncontendedLock);
    benchmark::RegisterBenchmark("yardstick/wake_cost", wakeCost)
        ->UseManualTime()
        ->Iterations(samples);
    benchmark::RegisterBenchmark("yardstick/wake_latency", wakeLatency)
        ->UseManualTime()
        ->Iterations(samples);
    benchmark::RegisterBenchmark("yardstick/wake_latency_paced", pacedWakeLatency)
        ->UseManualTime()
        ->Iterations(pacedSamples);
}

} // namespace glidemap::bench

// Measures the cost of one report on the driver's thread, from the contact callback until the frame
// is queued.
//
//   awake    the queue's thread runs another task and does not react
//   busy     the queue's thread continuously runs short tasks, and the two threads contend for the
//            queue
//   asleep   the queue's thread must be woken, because the fingers change. If both threads share a
//            processor, the time includes the run of the woken thread; `own_ns` excludes it.
//   deferred the queue's thread keeps sleeping, because no gesture can follow from the frame
#include "bench/allocation_count.h"
#include "bench/headless_pipeline.h"
#include "bench/samples.h"
#include "pipeline_bench.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

namespace glidemap::bench {

namespace {

constexpr int batch = 32; // fewer than the spare arrays that the engine keeps
constexpr int scriptLength = 128;

// Keeps the queue's thread inside one task from enter() to leave().
class Gate {
public:
    void enter(SerialQueue& queue) {
        state = waiting;
        queue.submit([this] {
            state = entered;
            while (state != open) {
            }
            state = left;
        });
        while (state != entered) {
        }
    }

    void leave() {
        state = open;
        while (state != left) {
        }
    }

private:
    enum State { waiting, entered, open, left };
    std::atomic<State> state = left;
};

// Keeps the queue's thread awake: a task of about a microsecond that submits itself again.
class BusyTask {
public:
    explicit BusyTask(SerialQueue& queue) : queue(queue) { run(); }
    BusyTask(const BusyTask&) = delete;
    BusyTask& operator=(const BusyTask&) = delete;

    ~BusyTask() {
        stopping = true;
        while (!stopped) {
            std::this_thread::yield();
        }
    }

private:
    void run() {
        queue.submit([this] {
            const Moment end = now() + std::chrono::microseconds(1);
            while (now() < end) {
            }
            if (stopping) {
                stopped = true;
            } else {
                run();
            }
        });
    }

    SerialQueue& queue;
    std::atomic<bool> stopping = false;
    std::atomic<bool> stopped = false;
};

// Pushes the reports of an endless swipe, or the reports passed to the constructor, in a loop.
class Driver {
public:
    explicit Driver(int fingers) : script(movingFingers(fingers, scriptLength)) {}
    explicit Driver(std::vector<Report> reports) : script(std::move(reports)) {}

    void push() {
        HeadlessPipeline::push(script[next], timestamp);
        next = (next + 1) % script.size();
        timestamp += 0.008;
    }

    void pushBatch() {
        for (int index = 0; index < batch; ++index) {
            push();
        }
    }

private:
    std::vector<Report> script;
    std::size_t next = 0;
    double timestamp = 1;
};

void reportAllocations(benchmark::State& state, std::int64_t allocations) {
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocations), benchmark::Counter::kAvgIterations);
}

// Measures whole batches, because reading the clock costs a tenth of one call.
template <typename Before, typename After>
void timeBatches(benchmark::State& state, const RealThreads& threads, const Before& before,
                 const After& after) {
    Driver driver(static_cast<int>(state.range(0)));
    driver.pushBatch();
    threads.waitUntilIdle();
    Samples samples(static_cast<std::size_t>(state.max_iterations / batch));
    std::int64_t allocations = 0;
    while (state.KeepRunningBatch(batch)) {
        before();
        const std::int64_t allocated = allocationsOfThisThread();
        const Moment start = now();
        driver.pushBatch();
        const Moment end = now();
        allocations += allocationsOfThisThread() - allocated;
        after();
        threads.waitUntilIdle();
        samples.add(start, end);
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    reportAllocations(state, allocations);
    state.counters["min_ns"] = samples.quantile(0) / batch;
    state.counters["median_ns"] = samples.quantile(0.5) / batch;
}

void callbackAwake(benchmark::State& state) {
    const RealThreads threads;
    const HeadlessPipeline pipeline(threads.ports());
    Gate gate;
    timeBatches(
        state, threads, [&] { gate.enter(*threads.queue()); }, [&] { gate.leave(); });
}

void callbackBusy(benchmark::State& state) {
    const RealThreads threads;
    const HeadlessPipeline pipeline(threads.ports());
    const BusyTask busyTask(*threads.queue());
    timeBatches(
        state, threads, [] {}, [] {});
}

// Each report lifts all fingers of the previous report.
std::vector<Report> alternatingHands(int fingers) {
    return {fingersAt(fingers, 0, 1), fingersAt(fingers, 0, 101)};
}

void callbackToSleepingQueue(benchmark::State& state, Driver driver) {
    const RealThreads threads;
    const HeadlessPipeline pipeline(threads.ports());
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    Samples own(static_cast<std::size_t>(state.max_iterations));
    std::int64_t allocations = 0;
    driver.pushBatch();
    for ([[maybe_unused]] auto _ : state) {
        threads.waitUntilAsleep();
        const std::int64_t allocated = allocationsOfThisThread();
        const double before = processorTimeOfThisThread();
        const Moment start = now();
        driver.push();
        const Moment end = now();
        own.add(processorTimeOfThisThread() - before);
        allocations += allocationsOfThisThread() - allocated;
        samples.add(start, end);
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    reportAllocations(state, allocations);
    reportQuantiles(state, samples);
    state.counters["own_ns"] = own.quantile(0.5);
}

void callbackAsleep(benchmark::State& state) {
    callbackToSleepingQueue(state, Driver(alternatingHands(static_cast<int>(state.range(0)))));
}

void callbackDeferred(benchmark::State& state) {
    callbackToSleepingQueue(state, Driver(static_cast<int>(state.range(0))));
}

// Measures the allocations of the engine's thread per frame, in a session that has lasted for a
// while.
void engineAllocations(benchmark::State& state) {
    const RealThreads threads;
    const HeadlessPipeline pipeline(threads.ports());
    Driver driver(static_cast<int>(state.range(0)));
    constexpr int untilPathsAreFull = 80;
    for (int index = 0; index < untilPathsAreFull; ++index) {
        driver.pushBatch();
        threads.waitUntilIdle();
    }
    const std::int64_t before = threads.callOnQueueThread(allocationsOfThisThread);
    while (state.KeepRunningBatch(batch)) {
        driver.pushBatch();
        threads.waitUntilIdle();
    }
    reportAllocations(state, threads.callOnQueueThread(allocationsOfThisThread) - before);
}

} // namespace

void registerContactCallbackBenchmarks(int samples) {
    for (const int fingers : {1, 5, 11}) {
        benchmark::RegisterBenchmark("callback/awake", callbackAwake)
            ->Arg(fingers)
            ->UseManualTime()
            ->Iterations(batch * (samples / 4));
        benchmark::RegisterBenchmark("callback/busy", callbackBusy)
            ->Arg(fingers)
            ->UseManualTime()
            ->Iterations(batch * (samples / 4));
        benchmark::RegisterBenchmark("callback/asleep", callbackAsleep)
            ->Arg(fingers)
            ->UseManualTime()
            ->Iterations(samples);
        benchmark::RegisterBenchmark("callback/deferred", callbackDeferred)
            ->Arg(fingers)
            ->UseManualTime()
            ->Iterations(samples);
        benchmark::RegisterBenchmark("engine/frame", engineAllocations)
            ->Arg(fingers)
            ->UseRealTime();
    }
}

} // namespace glidemap::bench

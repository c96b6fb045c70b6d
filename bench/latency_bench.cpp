// Measures the latency that a person experiences, with the real threads: from the contact callback
// of the report in which three fingers lift until onGesture is called for their tap.
//
//   asleep   the queue's thread has just gone to sleep
//   paced    reports arrive every 8 ms, as from a touchpad, and both threads sleep between them:
//            the latency in practice, including the processor's wake-up from its idle state
//   busy     the queue's thread runs a task of two microseconds when the report arrives
#include "bench/headless_pipeline.h"
#include "bench/pace.h"
#include "bench/samples.h"
#include "pipeline_bench.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <thread>

namespace glidemap::bench {

namespace {

// Sends taps with three fingers, each one second after the previous tap.
class Taps {
public:
    explicit Taps(HeadlessPipeline& pipeline) {
        pipeline.onGesture([this](GestureType /*gesture*/) {
            delivered = now();
            taps.fetch_add(1, std::memory_order_release);
        });
    }

    void land() { HeadlessPipeline::push(fingers, ++time); }

    // Lifts the fingers and records the latency of their tap.
    template <typename Wait>
    void lift(benchmark::State& state, Samples& samples, const Wait& wait) {
        const int before = taps.load();
        const Moment start = now();
        HeadlessPipeline::push({}, time + 0.1);
        while (taps.load(std::memory_order_acquire) == before) {
            wait();
        }
        samples.add(start, delivered);
        state.SetIterationTime(std::chrono::duration<double>(delivered - start).count());
    }

private:
    const Report fingers = fingersAt(3, 0);
    double time = 1;
    Moment delivered;
    std::atomic<int> taps = 0;
};

void latencyAsleep(benchmark::State& state) {
    const RealThreads threads;
    HeadlessPipeline pipeline(threads.ports());
    Taps taps(pipeline);
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    for ([[maybe_unused]] auto _ : state) {
        taps.land();
        threads.waitUntilAsleep();
        taps.lift(state, samples, std::this_thread::yield);
    }
    reportQuantiles(state, samples);
}

void latencyPaced(benchmark::State& state) {
    const RealThreads threads;
    HeadlessPipeline pipeline(threads.ports());
    Taps taps(pipeline);
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    Pace pace;
    for ([[maybe_unused]] auto _ : state) {
        pace.waitForNextReport();
        taps.land();
        pace.waitForNextReport();
        taps.lift(state, samples, [&] { pace.waitForNextReport(); });
    }
    reportQuantiles(state, samples);
}

void latencyBusy(benchmark::State& state) {
    const RealThreads threads;
    HeadlessPipeline pipeline(threads.ports());
    Taps taps(pipeline);
    Samples samples(static_cast<std::size_t>(state.max_iterations));
    std::atomic<bool> entered = false;
    for ([[maybe_unused]] auto _ : state) {
        taps.land();
        entered = false;
        threads.queue()->submit([&entered] {
            entered = true;
            const Moment end = now() + std::chrono::microseconds(2);
            while (now() < end) {
            }
        });
        while (!entered) {
        }
        taps.lift(state, samples, [] {});
    }
    reportQuantiles(state, samples);
}

} // namespace

void registerLatencyBenchmarks(int samples, int pacedSamples) {
    benchmark::RegisterBenchmark("latency/asleep", latencyAsleep)
        ->UseManualTime()
        ->Iterations(samples);
    benchmark::RegisterBenchmark("latency/paced", latencyPaced)
        ->UseManualTime()
        ->Iterations(pacedSamples);
    benchmark::RegisterBenchmark("latency/busy", latencyBusy)->UseManualTime()->Iterations(samples);
}

} // namespace glidemap::bench

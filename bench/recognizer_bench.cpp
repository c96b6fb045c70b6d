// Measures the recognizer's cost per frame, while fingers move and when a session ends.
#include "bench/touching.h"
#include "pipeline_bench.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

namespace glidemap::bench {

namespace {

constexpr double frameInterval = 0.008;

struct Bench {
    VirtualTime time;
    std::shared_ptr<SessionRecognizer> recognizer = SessionRecognizer::create(time.delayedWork());
    int gestures = 0;

    Bench() {
        recognizer->onGesture = [this](GestureType /*gesture*/) {
            ++gestures;
        };
    }

    void reportGestures(benchmark::State& state) const {
        state.counters["gestures"] =
            benchmark::Counter(static_cast<double>(gestures), benchmark::Counter::kAvgIterations);
    }
};

std::vector<TouchFrame> movingFrames(int fingers, int length) {
    std::vector<TouchFrame> frames;
    for (const Report& report : movingFingers(fingers, length)) {
        frames.push_back(frameOf(report, 1 + frameInterval * static_cast<double>(frames.size())));
    }
    return frames;
}

// Repeats a session of one second; its first frame and its end are not timed.
void inSession(benchmark::State& state) {
    constexpr int sessionLength = 125;
    Bench bench;
    const auto frames = movingFrames(static_cast<int>(state.range(0)), sessionLength);
    const TouchFrame lifted = frameOf({}, 1 + frameInterval * sessionLength);
    Samples samples(static_cast<std::size_t>(state.max_iterations / sessionLength) + 1);
    while (state.KeepRunningBatch(sessionLength - 1)) {
        bench.recognizer->process(frames.front());
        const Moment start = now();
        for (int index = 1; index < sessionLength; ++index) {
            bench.recognizer->process(frames[static_cast<std::size_t>(index)]);
        }
        const Moment end = now();
        bench.recognizer->process(lifted);
        samples.add(start, end);
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    state.counters["min_ns"] = samples.quantile(0) / (sessionLength - 1);
    state.counters["median_ns"] = samples.quantile(0.5) / (sessionLength - 1);
}

// Measures frames in which no finger moves.
void resting(benchmark::State& state) {
    Bench bench;
    const auto fingers = fingersAt(static_cast<int>(state.range(0)), 0);
    TouchFrame frame = frameOf(fingers, 1);
    for ([[maybe_unused]] auto _ : state) {
        bench.recognizer->process(frame);
        frame.timestamp += frameInterval;
    }
}

// Measures the frame in which the finger lifts after drawing. The drawing takes `points` frames and
// less than three seconds. It is one circle, or five circles if it has more than 1000 points.
void endOfCircle(benchmark::State& state) {
    constexpr int rounds = 5;
    constexpr double duration = 2.9;
    Bench bench;
    const auto points = static_cast<int>(state.range(0));
    const int turns = points > 1000 ? rounds : 1;
    std::vector<TouchFrame> frames;
    for (int index = 0; index < points; ++index) {
        const double turn = 2 * std::numbers::pi * turns * index / points;
        const double x = 0.5 + 0.4 / padAspect * std::cos(turn);
        frames.push_back(
            frameOf({contact(1, x, 0.5 + 0.4 * std::sin(turn))}, 1 + duration * index / points));
    }
    const TouchFrame lifted = frameOf({}, 1 + duration);
    for ([[maybe_unused]] auto _ : state) {
        for (const TouchFrame& frame : frames) {
            bench.recognizer->process(frame);
        }
        const Moment start = now();
        bench.recognizer->process(lifted);
        const Moment end = now();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    bench.reportGestures(state);
}

// Measures the frame in which all fingers of a tap lift, including the report of the tap.
void endOfTap(benchmark::State& state) {
    Bench bench;
    const auto fingers = fingersAt(static_cast<int>(state.range(0)), 0);
    double time = 1;
    TouchFrame landed = frameOf(fingers, time);
    TouchFrame lifted = frameOf({}, time);
    for ([[maybe_unused]] auto _ : state) {
        landed.timestamp = ++time;
        lifted.timestamp = time + 0.1;
        bench.recognizer->process(landed);
        const Moment start = now();
        bench.recognizer->process(lifted);
        const Moment end = now();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    bench.reportGestures(state);
}

} // namespace

void registerRecognizerBenchmarks() {
    for (const int fingers : {1, 2, 5}) {
        benchmark::RegisterBenchmark("recognizer/in_session", inSession)
            ->Arg(fingers)
            ->UseManualTime();
    }
    for (const int fingers : {1, 2, 5}) {
        benchmark::RegisterBenchmark("recognizer/resting", resting)->Arg(fingers);
    }
    for (const int points : {125, 2000}) {
        benchmark::RegisterBenchmark("recognizer/end_of_circle", endOfCircle)
            ->Arg(points)
            ->UseManualTime();
    }
    for (const int fingers : {2, 5}) {
        benchmark::RegisterBenchmark("recognizer/end_of_tap", endOfTap)
            ->Arg(fingers)
            ->UseManualTime();
    }
}

} // namespace glidemap::bench

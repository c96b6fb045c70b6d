// memory_bench [--minutes N]: measures the pipeline's memory after an hour of touches at 125
// reports a second, and after an hour in which one finger never lifts. Time is virtual.
#include "bench/headless_pipeline.h"
#include "bench/performance_script.h"
#include "bench/process_memory.h"
#include "platform/virtual/virtual_time.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace glidemap::bench {

namespace {

constexpr double minute = 60; // seconds

struct Counts {
    std::int64_t reports = 0;
    std::int64_t gestures = 0;
};

void print(const char* moment, const Counts& counts) {
    const ProcessMemory memory = processMemory();
    std::printf("%-44s %10lld %10lld %10ld %10ld %10ld\n", moment,
                static_cast<long long>(counts.reports), static_cast<long long>(counts.gestures),
                memory.resident, memory.privatePages, memory.heapInUse);
}

class Hour {
public:
    Hour() : pipeline({time.clock(), time.queue(), time.delayedWork()}) {
        pipeline.onGesture([this](GestureType /*gesture*/) { ++gestures; });
        pipeline.bindDoubleTaps();
    }

    void play(double seconds) {
        print("  pipeline made", counts());
        script.playMixed(minute);
        print("  a minute of mixed touching", counts());
        script.playMixed(seconds - minute);
        time.runRemaining();
        print("  the whole time of mixed touching", counts());
        script.tapBesideRestingFinger(minute);
        print("  a minute of taps beside a resting finger", counts());
        script.tapBesideRestingFinger(seconds - minute);
        print("  the whole time, in one session", counts());
        script.liftAll();
        time.runRemaining();
        print("  all fingers lifted", counts());
    }

    Counts counts() const { return {script.reports(), gestures}; }

private:
    void push(const Report& report, double timestamp) {
        time.advanceTo(timestamp);
        HeadlessPipeline::push(report, timestamp);
        time.runSubmitted();
    }

    VirtualTime time;
    HeadlessPipeline pipeline;
    std::int64_t gestures = 0;
    PerformanceScript script{[this](const Report& report, double timestamp) {
        push(report, timestamp);
    }};
};

int run(double minutes) {
    std::printf("%-44s %10s %10s %10s %10s %10s\n", "", "reports", "gestures", "RSS KiB", "private",
                "heap used");
    print("process started", {});
    Hour hour;
    hour.play(minutes * minute);
    // If no gesture was recognised, the pipeline did not work, and the figures are meaningless.
    return hour.counts().gestures > 0 ? 0 : 1;
}

} // namespace

} // namespace glidemap::bench

int main(int argumentCount, char** arguments) {
    const bool chosen = argumentCount == 3 && std::strcmp(arguments[1], "--minutes") == 0;
    if (argumentCount != 1 && !chosen) {
        std::fprintf(stderr, "usage: memory_bench [--minutes N]\n");
        return 2;
    }
    return glidemap::bench::run(chosen ? std::strtod(arguments[2], nullptr) : 60);
}

// idle_bench [--seconds N] [DRIVER]: measures how often the threads of the pipeline wake up while
// no finger touches the pad. Fails if a thread wakes up.
//
// The pipeline has processed touches before, so that every thread exists and a delayed tap has
// fired. DRIVER is the path of a touch driver that is loaded and started as well; its threads are
// also measured.
#include "bench/headless_pipeline.h"
#include "bench/process_memory.h"
#include "bench/thread_watch.h"
#include "platform/linux/touch_driver_platform.h"

#include <sys/resource.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap::bench {

namespace {

struct Options {
    double seconds = 10;
    std::optional<std::string> driver;
};

std::optional<Options> optionsFrom(int count, char** arguments) {
    Options options;
    for (int index = 1; index < count; ++index) {
        const std::string_view argument = arguments[index];
        if (argument == "--seconds" && index + 1 < count) {
            options.seconds = std::strtod(arguments[++index], nullptr);
        } else if (!argument.starts_with("-")) {
            options.driver = argument;
        } else {
            return std::nullopt;
        }
    }
    return options;
}

// Taps with two fingers, and waits until the thread of delayed work has delivered the tap.
void touchOnce(HeadlessPipeline& pipeline) {
    std::atomic<bool> tapped = false;
    pipeline.onGesture([&tapped](GestureType /*gesture*/) {
        tapped = true;
        tapped.notify_one();
    });
    pipeline.bindDoubleTaps();
    HeadlessPipeline::push(fingersAt(2, 0), 1);
    HeadlessPipeline::push({}, 1.1);
    tapped.wait(false);
}

void waitUntilOthersSleep() {
    for (const ThreadSwitches& thread : switchesOfAllThreads()) {
        const SleepWatch watch(thread.thread);
        while (thread.thread != thisThread() && !watch.sleeps()) {
        }
    }
}

// Waits only once, so that this thread itself does not wake up during the measurement.
void sleepFor(double seconds) {
    const int timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC);
    const auto whole = static_cast<time_t>(seconds);
    const auto rest = static_cast<long>((seconds - static_cast<double>(whole)) * 1e9);
    const itimerspec once{{}, {whole, rest}};
    timerfd_settime(timer, 0, &once, nullptr);
    std::uint64_t beats = 0;
    [[maybe_unused]] const auto size = read(timer, &beats, sizeof(beats));
    close(timer);
}

std::int64_t printDifference(const std::vector<ThreadSwitches>& before,
                             const std::vector<ThreadSwitches>& after) {
    std::int64_t wakeUps = 0;
    for (std::size_t index = 0; index < after.size(); ++index) {
        const bool isWatcher = after[index].thread == thisThread();
        const std::int64_t switches = after[index].voluntary - before[index].voluntary +
                                      after[index].involuntary - before[index].involuntary;
        std::printf("  %-18s %4lld%s\n", after[index].name.c_str(),
                    static_cast<long long>(switches),
                    isWatcher ? "  (this program's own wait)" : "");
        wakeUps += isWatcher ? 0 : switches;
    }
    return wakeUps;
}

int run(const Options& options) {
    const RealThreads threads;
    HeadlessPipeline pipeline(threads.ports());
    std::optional<MultitouchDeviceManager> devices;
    if (options.driver) {
        devices.emplace(touchDriverPlatformAt(*options.driver));
        devices->start();
        std::printf("driver: %s\n", devices->loadError().value_or("started").c_str());
    }
    touchOnce(pipeline);
    waitUntilOthersSleep();

    const auto before = switchesOfAllThreads();
    sleepFor(options.seconds);
    const auto after = switchesOfAllThreads();
    if (after.size() != before.size()) {
        std::printf("a thread came or went\n");
        return 1;
    }
    std::printf("switches of each thread in %.1f s:\n", options.seconds);
    const std::int64_t wakeUps = printDifference(before, after);
    const ProcessMemory memory = processMemory();
    std::printf("wake-ups of the pipeline: %lld\nresident %ld KiB, private %ld KiB\n",
                static_cast<long long>(wakeUps), memory.resident, memory.privatePages);
    if (devices) {
        devices->stop();
    }
    return wakeUps == 0 ? 0 : 1;
}

} // namespace

} // namespace glidemap::bench

int main(int argumentCount, char** arguments) {
    const auto options = glidemap::bench::optionsFrom(argumentCount, arguments);
    if (!options) {
        std::fprintf(stderr, "usage: idle_bench [--seconds N] [DRIVER]\n");
        return 2;
    }
    return glidemap::bench::run(*options);
}

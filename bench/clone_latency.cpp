// clone_latency [SAMPLES]: measures the latency that click filtering adds to a touchpad. Runs
// inside the test kernel, because it creates touchpads.
//
//   bare     write ─▶ touchpad ─▶ a program that waits for it           no other reader
//   beside   write ─▶ touchpad ─▶ a program that waits for it           the driver reads, too
//   cloned   write ─▶ touchpad ─▶ driver ─▶ clone ─▶ a program that waits for it
//
// The measured time starts just before the write and ends when the program has read the frame. All
// threads are asleep before each frame, as between the reports of a real touchpad.
#include "bench/samples.h"
#include "forwarded_pad.h"

#include <poll.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

namespace glidemap::bench {

namespace {

using namespace glidemap::test;

constexpr double microsecond = 1000; // in nanoseconds, the unit of the samples

// Waits for a device's events on a thread of its own, and records when it has read a frame.
class WaitingProgram {
public:
    explicit WaitingProgram(EventReader& device) : reader(device), thread([this] { listen(); }) {}
    WaitingProgram(const WaitingProgram&) = delete;
    WaitingProgram& operator=(const WaitingProgram&) = delete;
    ~WaitingProgram() { thread.join(); }

    Moment waitForFrame(int number) {
        for (int now = frames; now < number; now = frames) {
            frames.wait(now);
        }
        return moment;
    }

    // The thread ends at the next frame.
    void stop() { stopping = true; }

private:
    void listen() {
        pollfd source{reader.descriptor(), POLLIN, 0};
        while (!stopping && poll(&source, 1, -1) > 0) {
            if (!reader.read().empty()) {
                moment = now();
                ++frames;
                frames.notify_one();
            }
        }
    }

    EventReader& reader;
    Moment moment;
    std::atomic<int> frames = 0;
    std::atomic<bool> stopping = false;
    std::thread thread;
};

EventFrame handAt(int fingers, std::int32_t step) {
    EventFrame frame;
    for (std::int32_t slot = 0; slot < fingers; ++slot) {
        frame = together({std::move(frame), fingerMove(slot, 500 * slot + step, 500 + step)});
    }
    return frame;
}

EventFrame landing(int fingers) {
    EventFrame frame;
    for (std::int32_t slot = 0; slot < fingers; ++slot) {
        frame = together({std::move(frame), fingerDown(slot, 100 + slot, 500 * slot, 500)});
    }
    return frame;
}

EventFrame lifting(int fingers) {
    EventFrame frame;
    for (std::int32_t slot = 0; slot < fingers; ++slot) {
        frame = together({std::move(frame), fingerUp(slot)});
    }
    return frame;
}

// `settle` must not return before the driver's threads are asleep.
template <typename Settle>
Samples measure(VirtualPad& pad, EventReader& reader, int fingers, int count, Settle settle) {
    Samples samples(static_cast<std::size_t>(count));
    pad.write(landing(fingers));
    settle();
    reader.read();
    {
        WaitingProgram program(reader);
        for (int number = 1; number <= count; ++number) {
            settle();
            const EventFrame frame = handAt(fingers, 1 + number % 400);
            const Moment start = now();
            pad.write(frame);
            samples.add(start, program.waitForFrame(number));
        }
        program.stop();
        pad.write(lifting(fingers));
    }
    settle();
    reader.read();
    return samples;
}

void print(const char* what, int fingers, const Samples& samples) {
    std::printf("%-15s %d finger(s)  median %6.1f us  99th percentile %6.1f us\n", what, fingers,
                samples.quantile(0.5) / microsecond, samples.quantile(0.99) / microsecond);
}

void printAdded(const char* what, int fingers, const Samples& cloned, const Samples& without) {
    const double added = cloned.quantile(0.5) - without.quantile(0.5);
    std::printf("added %-9s %d finger(s)  median %6.1f us\n", what, fingers, added / microsecond);
}

void compare(int fingers, int count) {
    ForwardedPad forwarded;
    VirtualPad alone(otherPad());
    EventReader ofAlone(alone.node());
    const auto settle = [&] {
        forwarded.session.waitUntilAsleep();
    };
    const Samples bare = measure(alone, ofAlone, fingers, count, settle);
    const Samples beside = measure(forwarded.pad, forwarded.others, fingers, count, settle);
    forwarded.switchOn();
    const Samples cloned = measure(forwarded.pad, *forwarded.clone, fingers, count, settle);
    print("bare", fingers, bare);
    print("beside", fingers, beside);
    print("cloned", fingers, cloned);
    printAdded("to bare", fingers, cloned, bare);
    printAdded("to beside", fingers, cloned, beside);
}

} // namespace

} // namespace glidemap::bench

int main(int argumentCount, char** arguments) {
    const int count = argumentCount > 1 ? std::atoi(arguments[1]) : 5000;
    for (const int fingers : {1, 2, 5}) {
        glidemap::bench::compare(fingers, count);
    }
    return 0;
}

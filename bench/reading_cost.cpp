// reading_cost [--seconds N] [--rounds N]: measures what it costs the program to read a touchpad,
// and what the same events cost a bare reader in the same run.
//
//   bare       node ─▶ libevdev, discarding the events: the lower bound for every program
//   program    node ─▶ driver's thread ─▶ engine's thread, as the program connects them
//
// Prints the processor time and the wake-ups of each thread, divided by the number of reports. The
// stream is one moving finger at 143 reports a second, with all events of a touchpad with pressure.
// The node is a pipe (fake_node.h), so no touchpad or permission is needed.
#include "bench/headless_pipeline.h"
#include "bench/samples.h"
#include "bench/thread_watch.h"
#include "drivers/evdev/evdev_pad.h"
#include "drivers/evdev/touchpad_driver.h"
#include "fake_node.h"

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <thread>

namespace glidemap::bench {

namespace {

constexpr double reportsPerSecond = 143;

// A touchpad directory with a single touchpad.
class OnePad : public PadDirectory {
public:
    explicit OnePad(std::string path) { candidate.node = std::move(path); }

    std::vector<PadCandidate> candidates() override { return {candidate}; }
    std::optional<PadCandidate> candidateAt(const std::string& /*node*/) override {
        return candidate;
    }
    std::unique_ptr<OpenPad> open(const PadCandidate& each) override {
        return EvdevPad::open(each.node);
    }
    std::unique_ptr<ReturnWatch> watch() override { return nullptr; }
    std::unique_ptr<CloneWatch> watchClones() override { return nullptr; }

private:
    PadCandidate candidate;
};

class BareReader {
public:
    explicit BareReader(const std::string& node)
        : file(open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)), thread([this] { read(); }) {}
    BareReader(const BareReader&) = delete;
    BareReader& operator=(const BareReader&) = delete;
    ~BareReader() {
        eventfd_write(end.descriptor(), 1);
        thread.join();
    }

private:
    void read() {
        pthread_setname_np(pthread_self(), "bare");
        libevdev* device = nullptr;
        libevdev_new_from_fd(file.descriptor(), &device);
        std::array<pollfd, 2> sources{
            {{file.descriptor(), POLLIN, 0}, {end.descriptor(), POLLIN, 0}}};
        while (poll(sources.data(), sources.size(), -1) > 0 && sources[1].revents == 0) {
            input_event ignored{};
            while (libevdev_next_event(device, LIBEVDEV_READ_FLAG_NORMAL, &ignored) >= 0) {
            }
        }
        libevdev_free(device);
    }

    OpenFile file;
    OpenFile end{eventfd(0, EFD_CLOEXEC)};
    std::thread thread;
};

class ReportTimer {
public:
    ReportTimer() {
        constexpr long interval = static_cast<long>(1e9 / reportsPerSecond);
        const itimerspec every{{0, interval}, {0, interval}};
        timerfd_settime(timer.descriptor(), 0, &every, nullptr);
    }

    void wait() const {
        std::uint64_t expirations = 0;
        [[maybe_unused]] const auto size =
            read(timer.descriptor(), &expirations, sizeof expirations);
    }

private:
    OpenFile timer{timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC)};
};

input_event event(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    input_event made{};
    made.type = type;
    made.code = code;
    made.value = value;
    return made;
}

input_event absolute(std::uint16_t code, std::int32_t value) {
    return event(EV_ABS, code, value);
}

input_event key(std::uint16_t code, std::int32_t value) {
    return event(EV_KEY, code, value);
}

// Every value differs from the previous report, because the kernel passes on only changes.
std::array<input_event, 8> movement(std::int32_t number) {
    const std::int32_t x = 500 + 7 * (number % 400);
    const std::int32_t y = 300 + 3 * (number % 400);
    const std::int32_t force = 40 + number % 50;
    return {absolute(ABS_MT_POSITION_X, x),
            absolute(ABS_MT_POSITION_Y, y),
            absolute(ABS_MT_PRESSURE, force),
            absolute(ABS_MT_TOUCH_MAJOR, force + 1),
            absolute(ABS_MT_TOUCH_MINOR, force),
            absolute(ABS_X, x),
            absolute(ABS_Y, y),
            absolute(ABS_PRESSURE, force)};
}

// Plays a finger that lands, moves and lifts. Returns the number of its movements.
int playStream(FakeNode& node, double seconds) {
    const int count = static_cast<int>(seconds * reportsPerSecond);
    const ReportTimer timer;
    node.write(std::array{absolute(ABS_MT_SLOT, 0), absolute(ABS_MT_TRACKING_ID, 7),
                          absolute(ABS_MT_POSITION_X, 100), absolute(ABS_MT_POSITION_Y, 100),
                          key(BTN_TOUCH, 1), key(BTN_TOOL_FINGER, 1)});
    for (int number = 0; number < count; ++number) {
        timer.wait();
        node.write(movement(number));
    }
    timer.wait();
    node.write(
        std::array{absolute(ABS_MT_TRACKING_ID, -1), key(BTN_TOUCH, 0), key(BTN_TOOL_FINGER, 0)});
    timer.wait();
    return count;
}

// Reads the processor-time clock of the thread.
double processorMicroseconds(pid_t thread) {
    constexpr int ofOneThread = 6; // as in pthread_getcpuclockid()
    timespec time{};
    clock_gettime((~static_cast<clockid_t>(thread) << 3) | ofOneThread, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

struct Cost {
    double microseconds = 0;
    double wakeUps = 0;
};

// Returns the cost of each thread that woke up for more than half of the reports, except the thread
// that plays the touchpad.
std::map<std::string, Cost> costDuring(FakeNode& node, double seconds) {
    const auto before = switchesOfAllThreads();
    std::map<pid_t, double> timeBefore;
    for (const ThreadSwitches& each : before) {
        timeBefore[each.thread] = processorMicroseconds(each.thread);
    }
    const int reports = playStream(node, seconds);
    std::map<std::string, Cost> costs;
    for (const ThreadSwitches& each : switchesOfAllThreads()) {
        const auto same = std::ranges::find(before, each.thread, &ThreadSwitches::thread);
        const auto woken = each.voluntary - (same != before.end() ? same->voluntary : 0);
        if (each.thread != thisThread() && woken > reports / 2) {
            const double time = processorMicroseconds(each.thread) - timeBefore[each.thread];
            costs[each.name] = {time / reports, static_cast<double>(woken) / reports};
        }
    }
    return costs;
}

double print(const char* what, const std::map<std::string, Cost>& costs) {
    double sum = 0;
    std::printf("%-8s", what);
    for (const auto& [thread, cost] : costs) {
        std::printf("  %s %.1f us, woken %.2f times", thread.c_str(), cost.microseconds,
                    cost.wakeUps);
        sum += cost.microseconds;
    }
    std::printf("  together %.1f us\n", sum);
    std::fflush(stdout);
    return sum;
}

double measureBare(double seconds) {
    FakeNode node;
    const BareReader reader(node.path());
    return print("bare", costDuring(node, seconds));
}

double measureProgram(double seconds) {
    FakeNode node;
    const RealThreads threads;
    HeadlessPipeline pipeline(threads.ports());
    pipeline.onGesture([](GestureType) {});
    TouchpadDriver driver(std::make_unique<OnePad>(node.path()));
    for (const auto device : driver.createList()) {
        driver.addCallback(device, MultitouchDeviceManager::contactCallback);
        driver.start(device);
    }
    return print("program", costDuring(node, seconds));
}

void run(double seconds, int rounds) {
    for (int round = 0; round < rounds; ++round) {
        const double bare = measureBare(seconds);
        const double program = measureProgram(seconds);
        std::printf("above a bare reader: %.1f us a report, %.3f s in a minute of touching; %.2f "
                    "times the reader\n",
                    program - bare, (program - bare) * reportsPerSecond * 60 / 1e6, program / bare);
    }
}

} // namespace

} // namespace glidemap::bench

int main(int count, char** arguments) {
    double seconds = 10;
    int rounds = 3;
    for (int index = 1; index + 1 < count; index += 2) {
        if (std::strcmp(arguments[index], "--seconds") == 0) {
            seconds = std::strtod(arguments[index + 1], nullptr);
        } else if (std::strcmp(arguments[index], "--rounds") == 0) {
            rounds = std::atoi(arguments[index + 1]);
        }
    }
    glidemap::bench::run(seconds, rounds);
    return 0;
}

// interface_figures [--seconds N] [--runs N] [--series N] [--beside PROGRAM]: measures the cost of
// the program on a desktop: its start time, its memory with the window open and closed, its
// wake-ups while idle, and the cost of one demonstration. The reference for start time and memory
// is a bare window of the same toolkit.
//
// Starts alternate between the programs, so that load on the machine affects all of them equally.
// PROGRAM is another build of the program, whose start times are measured as well. Fails if the
// program wakes up while idle.
#include "running_process.h"
#include "stage.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <ctime>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

namespace glidemap::bench {

namespace {

using test::ApplicationStage;
using test::Program;

struct Options {
    double seconds = 10;
    int runs = 15;
    int series = 1;
    const char* beside = nullptr;
};

struct Starts {
    std::vector<double> toItem;
    std::vector<double> toWindow;
    std::vector<double> toWindowOfYardstick;
    std::vector<double> toWindowOfOther;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Returns the tenth percentile, which excludes most noise from other programs.
double tenthPercentile(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 10];
}

// Returns a command that starts the program without accessibility, as on a desktop without a screen
// reader.
Program::Command commandOn(const ApplicationStage& stage, const char* program) {
    Program::Command command = stage.command();
    command.words = {program};
    command.environment.erase("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
    return command;
}

bool isShown(const ApplicationStage& stage, const char* title) {
    return stage.display.windowTitled(title).has_value();
}

// Sends SIGTERM and waits for the exit.
void terminate(const Program& program) {
    kill(program.process(), SIGTERM);
    siginfo_t ended{};
    while (waitid(P_PID, static_cast<id_t>(program.process()), &ended, WEXITED | WNOWAIT) != 0) {
    }
}

// Polls five times a millisecond. Continuous polling would take processor time from the measured
// program and from the X server.
double timeUntil(double start, const std::function<bool()>& condition) {
    const timespec pollInterval{0, 200'000};
    while (!condition()) {
        nanosleep(&pollInterval, nullptr);
    }
    return now() - start;
}

struct Start {
    double toItem;
    double toWindow;
};

Start startProgram(ApplicationStage& stage, const char* path) {
    const double start = now();
    Program program(commandOn(stage, path));
    double item = 0;
    const double window = timeUntil(start, [&] {
        if (item == 0 && !stage.panel->items().empty()) {
            item = now() - start;
        }
        return isShown(stage, "Glidemap");
    });
    if (item == 0) {
        item = timeUntil(start, [&] { return !stage.panel->items().empty(); });
    }
    terminate(program);
    timeUntil(start, [&] { return stage.panel->items().empty(); });
    return {item, window};
}

void startYardstick(ApplicationStage& stage, Starts& starts) {
    const double start = now();
    Program program(commandOn(stage, GLIDEMAP_YARDSTICK));
    starts.toWindowOfYardstick.push_back(
        timeUntil(start, [&] { return isShown(stage, "Yardstick"); }));
    terminate(program);
}

Starts startInTurn(ApplicationStage& stage, const Options& options) {
    Starts starts;
    for (int run = 0; run < options.runs; ++run) {
        startYardstick(stage, starts);
        const Start start = startProgram(stage, GLIDEMAP_PROGRAM);
        starts.toItem.push_back(start.toItem);
        starts.toWindow.push_back(start.toWindow);
        if (options.beside != nullptr) {
            starts.toWindowOfOther.push_back(startProgram(stage, options.beside).toWindow);
        }
    }
    return starts;
}

// Measures the start times of the program and of the bare window. Returns their ratio.
double measureSeries(ApplicationStage& stage, const Options& options) {
    const Starts starts = startInTurn(stage, options);
    const double yardstick = median(starts.toWindowOfYardstick);
    const double window = median(starts.toWindow);
    std::cout << "start to status item: " << median(starts.toItem) * 1000 << " ms\n"
              << "start to window: " << window * 1000 << " ms, bare window " << yardstick * 1000
              << " ms, " << window / yardstick << " times";
    if (options.beside != nullptr) {
        const double other = median(starts.toWindowOfOther);
        std::cout << "; the other build " << other * 1000 << " ms, " << other / yardstick
                  << " times";
    }
    std::cout << "\nof which the quickest tenth: " << tenthPercentile(starts.toWindow) * 1000
              << " ms, bare window " << tenthPercentile(starts.toWindowOfYardstick) * 1000 << " ms";
    if (options.beside != nullptr) {
        std::cout << "; the other build " << tenthPercentile(starts.toWindowOfOther) * 1000
                  << " ms";
    }
    std::cout << std::endl;
    return window / yardstick;
}

void measureStarts(ApplicationStage& stage, const Options& options) {
    std::vector<double> ratios;
    for (int series = 0; series < options.series; ++series) {
        ratios.push_back(measureSeries(stage, options));
    }
    std::cout << "median of " << options.series << " series: " << median(ratios) << " times\n";
}

void print(const std::string& what, const Memory& memory) {
    std::cout << what << ": resident " << memory.resident << " KiB, private " << memory.privatePages
              << " KiB, of which written " << memory.written << " KiB; pictures of windows "
              << memory.pictures << " KiB\n";
}

Memory memoryOfYardstick(ApplicationStage& stage) {
    Program program(commandOn(stage, GLIDEMAP_YARDSTICK));
    timeUntil(now(), [&] { return isShown(stage, "Yardstick"); });
    waitUntilSettled(program.process());
    const Memory memory = memoryOf(program.process());
    terminate(program);
    return memory;
}

Memory memoryWithoutWindow(ApplicationStage& stage) {
    Program::Command command = commandOn(stage, GLIDEMAP_YARDSTICK);
    command.words.emplace_back("--no-window");
    Program program(command);
    program.nextLine();
    waitUntilSettled(program.process());
    const Memory memory = memoryOf(program.process());
    terminate(program);
    return memory;
}

void measureDemonstration(ApplicationStage& stage, pid_t process, double seconds) {
    stage.hands.press("Ctrl+N");
    while (cpuSecondsDuring(process, 0.5) < 0.001) { // wait until the demonstration plays
    }
    std::cout << "one demonstration playing: " << cpuSecondsDuring(process, seconds) / seconds * 100
              << " % of a core\n";
    stage.hands.press("Escape");
}

// Repeats the request: a window does not close while the sheet of the demonstration is closing.
void closeWindow(const ApplicationStage& stage, const char* title) {
    timeUntil(now(), [&] {
        const auto window = stage.display.windowTitled(title);
        if (window) {
            stage.display.close(*window);
        }
        return !window;
    });
}

long measureProgram(ApplicationStage& stage, double seconds) {
    Program program(commandOn(stage, GLIDEMAP_PROGRAM));
    timeUntil(now(), [&] { return isShown(stage, "Glidemap"); });
    waitUntilSettled(program.process());
    print("window open", memoryOf(program.process()));
    measureDemonstration(stage, program.process(), seconds);
    closeWindow(stage, "Glidemap");
    waitUntilSettled(program.process());
    print("window closed", memoryOf(program.process()));
    const long woken = wakeUpsDuring(program.process(), seconds, std::cout);
    terminate(program);
    return woken;
}

int run(const Options& options) {
    if (!ApplicationStage::isInstalled()) {
        std::cout << "skipped: there is no X server or accessibility bus to measure on\n";
        return 77;
    }
    ApplicationStage stage;
    measureStarts(stage, options);
    print("toolkit without a window", memoryWithoutWindow(stage));
    print("bare window", memoryOfYardstick(stage));
    return measureProgram(stage, options.seconds) == 0 ? 0 : 1;
}

} // namespace

} // namespace glidemap::bench

int main(int count, char* arguments[]) {
    glidemap::bench::Options options;
    for (int index = 1; index + 1 < count; index += 2) {
        if (std::strcmp(arguments[index], "--seconds") == 0) {
            options.seconds = std::atof(arguments[index + 1]);
        } else if (std::strcmp(arguments[index], "--runs") == 0) {
            options.runs = std::atoi(arguments[index + 1]);
        } else if (std::strcmp(arguments[index], "--series") == 0) {
            options.series = std::atoi(arguments[index + 1]);
        } else if (std::strcmp(arguments[index], "--beside") == 0) {
            options.beside = arguments[index + 1];
        }
    }
    return glidemap::bench::run(options);
}

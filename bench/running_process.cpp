#include "running_process.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <ostream>
#include <string>

namespace glidemap::bench {

namespace {

using Path = std::filesystem::path;

constexpr double settledAfter = 0.5;

Path folderOf(pid_t process) {
    return Path("/proc") / std::to_string(process);
}

// Reads a line "key: value …" from one of the kernel's files about a process.
long numberIn(const Path& file, const std::string& key) {
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(key)) {
            return std::strtol(line.c_str() + key.size(), nullptr, 10);
        }
    }
    return 0;
}

std::map<std::string, long> switchesByThread(pid_t process) {
    std::map<std::string, long> switches;
    std::error_code error;
    for (const auto& thread :
         std::filesystem::directory_iterator(folderOf(process) / "task", error)) {
        std::ifstream stream(thread.path() / "comm");
        std::string name;
        std::getline(stream, name);
        switches[name + " " + thread.path().filename().string()] =
            numberIn(thread.path() / "status", "voluntary_ctxt_switches:") +
            numberIn(thread.path() / "status", "nonvoluntary_ctxt_switches:");
    }
    return switches;
}

double cpuSeconds(pid_t process) {
    clockid_t clock = 0;
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) {
        return 0;
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void sleepFor(double seconds) {
    const auto whole = static_cast<time_t>(seconds);
    timespec left{whole, static_cast<long>((seconds - static_cast<double>(whole)) * 1e9)};
    while (nanosleep(&left, &left) != 0) {
    }
}

} // namespace

double now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

Memory memoryOf(pid_t process) {
    const Path rollup = folderOf(process) / "smaps_rollup";
    return {numberIn(folderOf(process) / "status", "VmRSS:"),
            numberIn(rollup, "Private_Clean:") + numberIn(rollup, "Private_Dirty:"),
            numberIn(rollup, "Anonymous:"), numberIn(folderOf(process) / "status", "RssShmem:")};
}

double cpuSecondsDuring(pid_t process, double seconds) {
    const double before = cpuSeconds(process);
    sleepFor(seconds);
    return cpuSeconds(process) - before;
}

long wakeUpsDuring(pid_t process, double seconds, std::ostream& output) {
    const auto before = switchesByThread(process);
    sleepFor(seconds);
    long woken = 0;
    for (const auto& [thread, count] : switchesByThread(process)) {
        const auto known = before.find(thread);
        const long more = count - (known != before.end() ? known->second : 0);
        output << thread << ": woke up " << more << " times in " << seconds << " s\n";
        woken += more;
    }
    return woken;
}

void waitUntilSettled(pid_t process) {
    while (cpuSecondsDuring(process, settledAfter) > 0) {
    }
}

} // namespace glidemap::bench

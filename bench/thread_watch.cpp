#include "bench/thread_watch.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace glidemap::bench {

namespace {

std::string taskFile(pid_t thread, const char* name) {
    return "/proc/self/task/" + std::to_string(thread) + "/" + name;
}

ThreadSwitches switchesOf(pid_t thread) {
    ThreadSwitches result;
    result.thread = thread;
    std::ifstream status(taskFile(thread, "status"));
    for (std::string key; status >> key;) {
        if (key == "Name:") {
            status >> result.name;
        } else if (key == "voluntary_ctxt_switches:") {
            status >> result.voluntary;
        } else if (key == "nonvoluntary_ctxt_switches:") {
            status >> result.involuntary;
        }
    }
    return result;
}

} // namespace

pid_t thisThread() {
    return static_cast<pid_t>(syscall(SYS_gettid));
}

SleepWatch::SleepWatch(pid_t thread)
    : statFile(open(taskFile(thread, "stat").c_str(), O_RDONLY | O_CLOEXEC)) {}

SleepWatch::~SleepWatch() {
    if (statFile >= 0) {
        close(statFile);
    }
}

bool SleepWatch::sleeps() const {
    std::array<char, 128> text{};
    const ssize_t length = pread(statFile, text.data(), text.size(), 0);
    if (length <= 0) {
        return false;
    }
    // The format is "id (name) state …"; the name may contain any character.
    const std::string_view stat(text.data(), static_cast<std::size_t>(length));
    const auto nameEnd = stat.rfind(") ");
    return nameEnd != std::string_view::npos && stat.substr(nameEnd + 2).starts_with('S');
}

std::vector<ThreadSwitches> switchesOfAllThreads() {
    std::vector<ThreadSwitches> result;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
        result.push_back(switchesOf(static_cast<pid_t>(std::stol(entry.path().filename()))));
    }
    std::ranges::sort(result, {}, &ThreadSwitches::thread);
    return result;
}

} // namespace glidemap::bench

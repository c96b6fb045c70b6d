#include "threads.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace glidemap::test {

namespace {

// Returns the rest of the line that begins with `name`. Empty if the thread has exited.
std::string statusLine(const std::filesystem::path& thread, const std::string& name) {
    std::ifstream status(thread / "status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) {
            return line.substr(name.size());
        }
    }
    return {};
}

std::filesystem::path ownThread(int thread) {
    return std::filesystem::path("/proc/self/task") / std::to_string(thread);
}

bool sleeps(const std::filesystem::path& thread) {
    return statusLine(thread, "State:").find('S') != std::string::npos;
}

} // namespace

std::vector<int> threadsOfProcess() {
    std::vector<int> threads;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
        threads.push_back(std::stoi(entry.path().filename().string()));
    }
    std::ranges::sort(threads);
    return threads;
}

std::vector<int> threadsNamed(const std::string& beginning) {
    std::vector<int> threads = threadsOfProcess();
    std::erase_if(threads, [&beginning](int thread) {
        std::ifstream file(ownThread(thread) / "comm");
        std::string name;
        std::getline(file, name);
        return !name.starts_with(beginning);
    });
    return threads;
}

std::int64_t sleepsOf(int thread) {
    const std::string count = statusLine(ownThread(thread), "voluntary_ctxt_switches:");
    return count.empty() ? -1 : std::stoll(count);
}

bool areAsleep(const std::vector<int>& threads) {
    return std::ranges::all_of(threads, [](int thread) { return sleeps(ownThread(thread)); });
}

bool isProcessAsleep(const std::string& process) {
    const std::filesystem::path threads = "/proc/" + process + "/task";
    return std::ranges::all_of(std::filesystem::directory_iterator(threads),
                               [](const auto& entry) { return sleeps(entry.path()); });
}

} // namespace glidemap::test

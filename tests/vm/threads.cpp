#include "threads.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace glidemap::vm {

namespace {

// The rest of the line that begins with `name`; empty for a thread that has ended.
std::string statusLine(int thread, const std::string& name) {
    std::ifstream status("/proc/self/task/" + std::to_string(thread) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) {
            return line.substr(name.size());
        }
    }
    return {};
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

std::int64_t sleepsOf(int thread) {
    const std::string count = statusLine(thread, "voluntary_ctxt_switches:");
    return count.empty() ? -1 : std::stoll(count);
}

bool isAsleep(int thread) {
    return statusLine(thread, "State:").find('S') != std::string::npos;
}

} // namespace glidemap::vm

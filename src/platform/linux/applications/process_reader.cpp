#include "platform/linux/applications/process_reader.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <sstream>
#include <string_view>

namespace glidemap {

namespace {

// Limits reading, because /proc/PID/environ may have any size.
constexpr std::size_t maxFileSize = std::size_t{1} << 20;

std::string contentOf(const std::string& path) {
    std::string content;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return content;
    }
    std::array<char, 4096> block{};
    ssize_t count = 0;
    while (content.size() < maxFileSize && (count = ::read(file, block.data(), block.size())) > 0) {
        content.append(block.data(), static_cast<std::size_t>(count));
    }
    close(file);
    return content;
}

std::vector<std::string> splitAtNulls(const std::string& text) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < text.size();) {
        parts.emplace_back(text.c_str() + at);
        at += parts.back().size() + 1;
    }
    return parts;
}

std::string targetOf(const std::string& link) {
    std::array<char, 4096> target{};
    const ssize_t size = readlink(link.c_str(), target.data(), target.size());
    std::string path(target.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    constexpr std::string_view deleted = " (deleted)"; // an update replaced the running program
    if (path.ends_with(deleted)) {
        path.resize(path.size() - deleted.size());
    }
    return path;
}

std::string variable(const std::vector<std::string>& environment, std::string_view name) {
    for (const std::string& one : environment) {
        if (one.size() > name.size() && one.starts_with(name) && one[name.size()] == '=') {
            return one.substr(name.size() + 1);
        }
    }
    return "";
}

// A child process inherits these variables from its parent, so they are valid only if the process
// id in them is that of the process itself.
std::string launchedFrom(const std::string& folder, pid_t process) {
    const auto environment = splitAtNulls(contentOf(folder + "environ"));
    const bool own =
        variable(environment, "GIO_LAUNCHED_DESKTOP_FILE_PID") == std::to_string(process);
    return own ? variable(environment, "GIO_LAUNCHED_DESKTOP_FILE") : "";
}

// Reads the fifth field after the name, the number of the terminal. The name is in parentheses, and
// may itself contain parentheses and spaces.
bool hasTerminal(const std::string& status) {
    const std::size_t nameEnd = status.rfind(')');
    if (nameEnd == std::string::npos) {
        return false;
    }
    std::istringstream fields(status.substr(nameEnd + 1));
    std::string state;
    long parent = 0;
    long group = 0;
    long session = 0;
    long terminal = 0;
    fields >> state >> parent >> group >> session >> terminal;
    return terminal != 0;
}

} // namespace

ProcessFacts KernelProcessReader::read(pid_t process) const {
    const std::string folder = "/proc/" + std::to_string(process) + "/";
    ProcessFacts facts;
    facts.controlGroups = contentOf(folder + "cgroup");
    facts.executable = targetOf(folder + "exe");
    facts.arguments = splitAtNulls(contentOf(folder + "cmdline"));
    facts.launchedFrom = launchedFrom(folder, process);
    facts.onTerminal = hasTerminal(contentOf(folder + "stat"));
    return facts;
}

} // namespace glidemap

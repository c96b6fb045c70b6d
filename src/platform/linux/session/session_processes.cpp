#include "platform/linux/session/session_processes.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/glib_owner.h"

#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <system_error>

namespace glidemap {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> splitAtZeros(const std::string& text) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < text.size(); at += parts.back().size() + 1) {
        parts.emplace_back(text.c_str() + at);
    }
    return parts;
}

bool isOurs(const fs::path& process) {
    struct stat facts {};
    return stat(process.c_str(), &facts) == 0 && facts.st_uid == getuid();
}

// Whether the variable is set in this process and has the same value in `environment`.
bool agree(const std::vector<std::string>& environment, const char* variable) {
    const std::string ours = fromEnvironment(variable);
    return !ours.empty() &&
           std::ranges::find(environment, variable + ("=" + ours)) != environment.end();
}

// A Wayland display is named after a socket in the runtime folder, so both variables must be equal.
bool isOnOurDisplay(const fs::path& process) {
    const std::vector<std::string> environment = splitAtZeros(contentOrEmpty(process / "environ"));
    return agree(environment, "DISPLAY") ||
           (agree(environment, "WAYLAND_DISPLAY") && agree(environment, "XDG_RUNTIME_DIR"));
}

std::string nameOf(const fs::path& process) {
    std::string name = contentOrEmpty(process / "comm");
    if (!name.empty() && name.back() == '\n') {
        name.pop_back();
    }
    return name;
}

bool isProcess(const fs::path& path) {
    const std::string name = path.filename().string();
    return std::ranges::all_of(
        name, [](unsigned char character) { return std::isdigit(character) != 0; });
}

} // namespace

// Returns an empty string if the file cannot be read, for example because the process exits after
// its file has been opened. The iterator of a std::ifstream would throw then.
std::string contentOrEmpty(const fs::path& path) {
    char* content = nullptr;
    gsize size = 0;
    if (g_file_get_contents(path.c_str(), &content, &size, nullptr) == FALSE) {
        return {};
    }
    const GlibOwner<char> owner(content);
    return {content, size};
}

std::vector<SessionProcess> sessionProcesses(std::span<const std::string_view> names) {
    std::vector<SessionProcess> found;
    std::error_code ignored;
    for (fs::directory_iterator one("/proc", ignored), end; one != end; one.increment(ignored)) {
        const fs::path& process = one->path();
        if (!isProcess(process) || !isOurs(process)) {
            continue;
        }
        const std::string name = nameOf(process);
        if (std::ranges::find(names, name) != names.end() && isOnOurDisplay(process)) {
            found.push_back({name, splitAtZeros(contentOrEmpty(process / "cmdline"))});
        }
    }
    return found;
}

} // namespace glidemap

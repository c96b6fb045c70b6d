#include "platform/linux/desktop/environment.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace glidemap {

std::string fromEnvironment(const char* variable) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): main changes the environment before it starts threads
    const char* const value = std::getenv(variable);
    return value != nullptr ? value : "";
}

std::vector<std::string> ownEnvironment() {
    std::vector<std::string> variables;
    for (char** one = environ; *one != nullptr; ++one) {
        variables.emplace_back(*one);
    }
    return variables;
}

std::vector<std::string> splitAtColons(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const auto end = text.find(':');
        if (end != 0) {
            parts.emplace_back(text.substr(0, end));
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return parts;
}

bool isCurrentDesktop(const std::string& desktop) {
    const auto names = splitAtColons(fromEnvironment("XDG_CURRENT_DESKTOP"));
    return std::find(names.begin(), names.end(), desktop) != names.end();
}

} // namespace glidemap

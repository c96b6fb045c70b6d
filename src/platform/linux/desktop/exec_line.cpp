#include "platform/linux/desktop/exec_line.h"

#include "platform/linux/desktop/glib_owner.h"

#include <glib.h>
#include <unistd.h>

#include <system_error>

namespace glidemap {

namespace {

constexpr std::string_view reserved = " \t\n\"'\\><~|&;$*?#()`";
constexpr std::string_view escapedWithinQuotes = "\"`$\\";

bool canBeRun(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
}

// Replaces "%%" with "%", because a doubled percent sign is not a field code.
std::string withoutDoublePercent(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        result += text[at];
        if (text.substr(at, 2) == "%%") {
            ++at;
        }
    }
    return result;
}

} // namespace

std::string execLineOf(const std::filesystem::path& program) {
    const std::string& path = program.native();
    std::string line;
    for (const char letter : path) {
        if (escapedWithinQuotes.find(letter) != std::string_view::npos) {
            line += '\\';
        }
        line += letter;
        if (letter == '%') {
            line += '%';
        }
    }
    const bool quoted = path.find_first_of(reserved) != std::string::npos;
    return quoted ? '"' + line + '"' : line;
}

std::optional<std::string> programOfExecLine(const std::string& line) {
    char** words = nullptr;
    if (g_shell_parse_argv(line.c_str(), nullptr, &words, nullptr) == FALSE) {
        return std::nullopt;
    }
    return withoutDoublePercent(takeWords(words).front());
}

std::optional<std::filesystem::path> findProgram(const std::string& program,
                                                 std::string_view searchPath) {
    const std::filesystem::path file(program);
    if (program.empty() || program.find('/') != std::string::npos) {
        return file.is_absolute() && canBeRun(file) ? std::optional(file) : std::nullopt;
    }
    while (!searchPath.empty()) {
        const auto end = searchPath.find(':');
        const auto candidate = std::filesystem::path(searchPath.substr(0, end)) / file;
        if (candidate.is_absolute() && canBeRun(candidate)) {
            return candidate;
        }
        searchPath.remove_prefix(end == std::string_view::npos ? searchPath.size() : end + 1);
    }
    return std::nullopt;
}

} // namespace glidemap

#include "platform/linux/desktop/exec_line.h"

#include "platform/linux/desktop/glib_owner.h"

#include <glib.h>
#include <unistd.h>

#include <cstddef>
#include <system_error>

namespace glidemap {

namespace {

constexpr std::string_view reserved = " \t\n\"'\\><~|&;$*?#()`";
constexpr std::string_view escapedWithinQuotes = "\"`$\\";

bool canBeRun(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
}

std::string quoted(const std::string& text) {
    return *takeText(g_shell_quote(text.c_str()));
}

std::string quotedFileOf(const std::string& url) {
    const auto path = takeText(g_filename_from_uri(url.c_str(), nullptr, nullptr));
    return path ? quoted(*path) : "";
}

// Deprecated and unknown field codes expand to nothing.
std::string expanded(char code, const FieldValues& values) {
    switch (code) {
    case '%':
        return "%";
    case 'u':
    case 'U':
        return values.url.empty() ? "" : quoted(values.url);
    case 'f':
    case 'F':
        return values.url.empty() ? "" : quotedFileOf(values.url);
    case 'i':
        return values.icon.empty() ? "" : "--icon " + quoted(values.icon);
    case 'c':
        return values.name.empty() ? "" : quoted(values.name);
    case 'k':
        return values.path.empty() ? "" : quoted(values.path);
    default:
        return "";
    }
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

SplitLine splitLikeAShell(const std::string& line) {
    char** words = nullptr;
    GError* failure = nullptr;
    g_shell_parse_argv(line.c_str(), nullptr, &words, &failure);
    const GlibOwner<GError> error(failure);
    return {takeWords(words), error != nullptr ? error->message : ""};
}

std::string withFieldCodes(const std::string& exec, const FieldValues& values) {
    std::string line;
    for (std::size_t at = 0; at < exec.size(); ++at) {
        if (exec[at] == '%' && at + 1 < exec.size()) {
            line += expanded(exec[++at], values);
        } else {
            line.push_back(exec[at]);
        }
    }
    return line;
}

std::vector<std::string> wordsOfExecLine(const std::string& line) {
    return splitLikeAShell(withFieldCodes(line, {})).words;
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

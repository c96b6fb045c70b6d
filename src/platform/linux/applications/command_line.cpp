#include "platform/linux/applications/command_line.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>

namespace glidemap {

namespace {

using Words = std::vector<std::string>;

constexpr std::array<std::string_view, 9> wrappers = {
    "env",         "nice",   "nohup",     "setsid",     "dbus-run-session",
    "dbus-launch", "pkexec", "prime-run", "gamemoderun"};

constexpr std::array<std::string_view, 10> interpreters = {
    "python", "perl", "ruby", "node", "bash", "sh", "dash", "gjs", "gjs-console", "lua"};

template <std::size_t Count>
bool oneOf(const std::array<std::string_view, Count>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Removes a version: "python3.11" becomes "python".
std::string_view withoutVersion(std::string_view name) {
    while (!name.empty() &&
           (std::isdigit(static_cast<unsigned char>(name.back())) != 0 || name.back() == '.')) {
        name.remove_suffix(1);
    }
    return name;
}

bool isOption(const std::string& word) {
    return word.starts_with('-');
}

bool isAssignment(const std::string& word) {
    const std::size_t equals = word.find('=');
    return equals != std::string::npos && word.find('/') > equals;
}

std::size_t skipOptions(const Words& words, std::size_t at) {
    while (at < words.size() && (isOption(words[at]) || isAssignment(words[at]))) {
        ++at;
    }
    return at;
}

std::string archiveOf(const Words& words, std::size_t at) {
    const auto option =
        std::find(words.begin() + static_cast<std::ptrdiff_t>(at), words.end(), "-jar");
    const bool named = option != words.end() && option + 1 != words.end();
    return named ? fileNameOf(*(option + 1)) : "";
}

// Returns the script that an interpreter runs; empty for `sh -c '…'`, which may run any command.
std::string scriptOf(const Words& words, std::size_t at) {
    for (; at < words.size() && isOption(words[at]); ++at) {
        if (words[at] == "-c" || words[at] == "-e" || words[at] == "-m") {
            return "";
        }
    }
    return at < words.size() ? fileNameOf(words[at]) : "";
}

// Returns the snap name of the program, for example "code" or "code.code".
std::string snapProgramOf(const Words& words, std::size_t at) {
    if (at >= words.size() || words[at] != "run") {
        return "";
    }
    at = skipOptions(words, at + 1);
    return at < words.size() ? words[at] : "";
}

// Returns the index of the actual command, after words that only prepare its environment.
std::size_t commandOf(const Words& words) {
    std::size_t at = skipOptions(words, 0);
    while (at < words.size() && oneOf(wrappers, fileNameOf(words[at]))) {
        at = skipOptions(words, at + 1);
    }
    return at;
}

} // namespace

std::string fileNameOf(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1)); // if there is no slash, npos + 1 is 0
}

std::string programOf(const Words& words) {
    const std::size_t at = commandOf(words);
    if (at >= words.size()) {
        return "";
    }
    std::string name = fileNameOf(words[at]);
    if (name == "flatpak") {
        return "";
    }
    if (name == "snap") {
        return snapProgramOf(words, at + 1);
    }
    if (name == "java") {
        return archiveOf(words, at + 1);
    }
    if (oneOf(interpreters, withoutVersion(name))) {
        return scriptOf(words, at + 1);
    }
    return name;
}

std::string flatpakOf(const Words& words) {
    std::size_t at = commandOf(words);
    if (at + 1 >= words.size() || fileNameOf(words[at]) != "flatpak" || words[at + 1] != "run") {
        return "";
    }
    at = skipOptions(words, at + 2);
    return at < words.size() ? words[at] : "";
}

std::string steamGameOf(const Words& words) {
    constexpr std::string_view scheme = "steam://rungameid/";
    for (const std::string& word : words) {
        if (word.starts_with(scheme)) {
            return word.substr(scheme.size());
        }
    }
    return "";
}

} // namespace glidemap

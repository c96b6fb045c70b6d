// The command-line options.
//
// Errors:  returned as values; prints nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace glidemap::replay {

struct Options {
    std::set<int> boundDoubleTaps; // finger counts
    std::vector<std::string> files;
    std::optional<std::string> bindingsFile;
    std::optional<std::string> demonstrationFolder; // if set, only writes a demonstration
    std::string language = "en";
    std::uint64_t seed = 1;
    bool json = false;
    bool realTime = false;
    bool stats = false;
    bool demonstrate = false;
};

struct HelpRequest {};

struct UsageError {
    std::string message;
};

std::variant<Options, HelpRequest, UsageError> parseOptions(int count, char** arguments);

extern const char* const helpText;

// The exit status.
enum class Status : int {
    success = 0,
    failure = 1,  // a performance was not recognised as intended, or the driver or an output failed
    badInput = 2, // an unreadable or malformed recording or bindings file, or a usage error
};

} // namespace glidemap::replay

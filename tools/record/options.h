// The command-line options.
//
// Errors:  returned as values; prints nothing.
#pragma once

#include <optional>
#include <string>
#include <variant>

namespace glidemap::record {

struct Options {
    std::optional<std::string> file; // standard output if absent
};

struct HelpRequest {};

struct UsageError {
    std::string message;
};

std::variant<Options, HelpRequest, UsageError> parseOptions(int count,
                                                            const char* const* arguments);

} // namespace glidemap::record

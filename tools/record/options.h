// What the person at the command line asks for.
//
// Errors:  values; nothing is printed here.
#pragma once

#include <optional>
#include <string>
#include <variant>

namespace glidemap::record {

struct Options {
    std::optional<std::string> file; // standard output if none
};

struct HelpRequest {};

struct UsageError {
    std::string message;
};

std::variant<Options, HelpRequest, UsageError> parseOptions(int count,
                                                            const char* const* arguments);

} // namespace glidemap::record

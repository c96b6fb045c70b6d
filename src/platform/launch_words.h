// The platform's part of the command line: the arguments that the system adds, and the help text.
// Each platform has its own implementation, and the build links one.
//
// Like the rest of the command line, it uses only the C library.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include <cstddef>
#include <span>

namespace glidemap {

// The number of leading arguments that the system has added; 0 if the first one is the user's.
// There is at least one argument.
std::size_t leadingSystemArguments(std::span<char* const> arguments);

extern const char* const launchHelp;

} // namespace glidemap

// The platform's part of the command line: the arguments that the system adds, and the help text.
// Each platform implements these functions; the build links one implementation.
//
// Like the parser of the command line, the implementations use only the C library.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include <cstddef>
#include <span>

namespace glidemap {

// Returns the number of leading arguments that the system has added; 0 if the first argument comes
// from the user. `arguments` must not be empty.
std::size_t leadingSystemArguments(std::span<char* const> arguments);

extern const char* const launchHelp;

} // namespace glidemap

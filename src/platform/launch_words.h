// What the command line is on the system that the program runs on: the arguments that the system adds by itself, and the
// help. Each system has its own implementation, and the build links one.
//
// Needs no library but the C library, like the rest of the command line.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include <cstddef>
#include <span>

namespace glidemap {

// How many of the first arguments belong together and are the system's, not the user's; 0 if the first is the user's. There is at
// least one argument.
std::size_t leadingSystemArguments(std::span<char* const> arguments);

extern const char* const launchHelp;

} // namespace glidemap

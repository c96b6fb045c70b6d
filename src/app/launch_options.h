// Parses the command line.
//
// Needs only the C library, so that the version and the help are printed before any other library
// is loaded.
//
// Errors:  as return values; prints nothing. The program accepts no files and none of the toolkit's
//          options.
#pragma once

#include <span>

namespace glidemap {

enum class LaunchOption { run, runVerbosely, diagnose, version, help, wrong };

// Takes the arguments without the program's name. Ignores the arguments that the system adds to the
// command line.
LaunchOption launchOption(std::span<char* const> arguments);

} // namespace glidemap

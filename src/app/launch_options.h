// Parses the command line.
//
// Uses only the C library, so that --version and --help work before any other library is loaded.
//
// Errors:  as return values; prints nothing. An unknown argument, such as a file name or one of
//          Qt's own options, is rejected.
#pragma once

#include <span>

namespace glidemap {

enum class LaunchOption { run, runVerbosely, diagnose, version, help, wrong };

// `arguments` does not contain the program's name. Arguments that the system adds to the command
// line are ignored.
LaunchOption launchOption(std::span<char* const> arguments);

} // namespace glidemap

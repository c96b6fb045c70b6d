// What the program was started for.
//
// Needs no library but the C library: the version and the help are printed before any other is loaded.
//
// Errors:  values; nothing is printed here. The program takes no files and no options of the toolkit.
#pragma once

#include <span>

namespace glidemap {

enum class LaunchOption { run, runVerbosely, diagnose, version, help, wrong };

// Without the name of the program. What the system adds to the command line by itself is left out.
LaunchOption launchOption(std::span<char* const> arguments);

} // namespace glidemap

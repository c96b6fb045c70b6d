// The program that shows itself and stays: everything but the command line.
//
// Thread:  the main thread, once in a process.
// Errors:  the exit status, which the manual page lists; what is wrong goes to standard error.
#pragma once

#include "app/launch_options.h"

namespace glidemap {

// Takes the options that start it: `run`, `runVerbosely` or `diagnose`. ARGUMENTS are those of the
// process. Where the program is in a library of its own, this loads it first.
int runProgram(LaunchOption option, char** arguments);

} // namespace glidemap

// Runs the program itself: everything but the command line.
//
// Thread:  the main thread, once per process.
// Errors:  the exit status, which the manual page lists. Error messages go to standard error.
#pragma once

#include "app/launch_options.h"

namespace glidemap {

// Takes an option that starts the program: `run`, `runVerbosely` or `diagnose`. `arguments` are
// those of the process. If the program is a separate library, this function loads it first.
int runProgram(LaunchOption option, char** arguments);

} // namespace glidemap

// Runs the program, apart from parsing its command line.
//
// Thread:  the main thread, once per process.
// Errors:  returns the exit status, as listed in the manual page. Error messages are written to
//          standard error.
#pragma once

#include "app/launch_options.h"

namespace glidemap {

// `option` must be one that starts the program: `run`, `runVerbosely` or `diagnose`. `arguments`
// are the arguments of the process. If the program is a separate library, this function loads it
// first.
int runProgram(LaunchOption option, char** arguments);

} // namespace glidemap

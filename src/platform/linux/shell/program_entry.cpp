// The program library's only exported function, for its loader.
#include "app/program.h"

extern "C" [[gnu::visibility("default")]] int glidemapRunProgram(glidemap::LaunchOption option,
                                                                 char** arguments);

int glidemapRunProgram(glidemap::LaunchOption option, char** arguments) {
    return glidemap::runProgram(option, arguments);
}

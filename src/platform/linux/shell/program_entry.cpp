// The only function that the program's library exports. The program loader calls it.
#include "app/program.h"

extern "C" [[gnu::visibility("default")]] int glidemapRunProgram(glidemap::LaunchOption option,
                                                                 char** arguments);

int glidemapRunProgram(glidemap::LaunchOption option, char** arguments) {
    return glidemap::runProgram(option, arguments);
}

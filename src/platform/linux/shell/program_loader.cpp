// Loads the program's library from ../lib/glidemap, relative to the executable's folder. Code that
// runs before the library is loaded may use only the C library.
#include "app/program.h"

#include <dlfcn.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace glidemap {

namespace {

constexpr const char* library = "lib/glidemap/libglidemap-program.so";

using RunProgram = int (*)(LaunchOption, char**);

struct Path {
    char text[PATH_MAX + 1] = ""; // NOLINT(modernize-avoid-c-arrays): for readlink() and strrchr()
};

void goUp(Path& path) {
    if (char* const end = std::strrchr(path.text, '/')) {
        *end = '\0';
    }
}

// Returns "/", which cannot be loaded, if the executable's path is unknown or too long.
Path libraryPath() {
    Path folder;
    if (readlink("/proc/self/exe", folder.text, PATH_MAX) < 0) {
        return {"/"};
    }
    goUp(folder);
    goUp(folder);
    Path path;
    const int length =
        std::snprintf(path.text, sizeof path.text, "%.*s/%s", PATH_MAX, folder.text, library);
    return length < PATH_MAX ? path : Path{"/"};
}

// Uses RTLD_GLOBAL, so that drivers that are loaded later share the libraries of the program, as if
// the executable were linked with them.
RunProgram loadedProgram() {
    void* const loaded = dlopen(libraryPath().text, RTLD_NOW | RTLD_GLOBAL);
    return loaded != nullptr ? reinterpret_cast<RunProgram>(dlsym(loaded, "glidemapRunProgram"))
                             : nullptr;
}

} // namespace

int runProgram(LaunchOption option, char** arguments) {
    if (const RunProgram run = loadedProgram()) {
        return run(option, arguments);
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the only thread
    std::fprintf(stderr, "glidemap: cannot be loaded: %s\n", dlerror());
    return EXIT_FAILURE;
}

} // namespace glidemap

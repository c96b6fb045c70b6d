// Handles the command line. This file uses only the C library, so that --version and --help respond
// quickly. runProgram() loads everything else.
#include "app/launch_options.h"
#include "app/program.h"
#include "platform/launch_words.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <span>

namespace {

using namespace glidemap;

int print(const char* text) {
    const bool isWritten = std::fputs(text, stdout) >= 0 && std::fflush(stdout) == 0;
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int count, char* arguments[]) {
    const std::span<char* const> all(arguments, static_cast<std::size_t>(count));
    const LaunchOption option = launchOption(all.subspan(all.empty() ? 0 : 1));
    switch (option) {
    case LaunchOption::version:
        return print("Glidemap " GLIDEMAP_VERSION "\n");
    case LaunchOption::help:
        return print(launchHelp);
    case LaunchOption::wrong:
        std::fputs("usage: glidemap [--verbose | --diagnose | --version | --help]\n", stderr);
        return 2;
    case LaunchOption::diagnose:
    case LaunchOption::runVerbosely:
    case LaunchOption::run:
        break;
    }
    return runProgram(option, arguments);
}

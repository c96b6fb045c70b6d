#include "platform/launch_words.h"

#include <string_view>

namespace glidemap {

namespace {

// Older versions of macOS pass an argument with the process number to programs that are started
// from the Finder.
constexpr std::string_view processNumber = "-psn_";

// The prefix of arguments that change a setting for a single launch, such as the language. The
// system reads these arguments itself.
constexpr std::string_view systemSetting = "-Apple";

bool isValue(std::string_view argument) {
    return !argument.starts_with('-');
}

} // namespace

const char* const launchHelp =
    R"(Runs actions for trackpad gestures. If Glidemap is already running, shows its settings window.

  Glidemap [--verbose | --diagnose | --version | --help]

  --verbose     log each decision to standard error, but never what is typed
  --diagnose    print a page for a bug report (devices, access, services) and exit
  --version     print the version
  --help        show this help

Glidemap runs in the menu bar. Quit it from its menu, with Command-Q in its window, or with SIGTERM.

  GLIDEMAP_LOG=1    the same as --verbose

Exit status: 0 after a normal exit, or when the running instance has shown its window; 1 if the
running instance does not respond, an instance cannot be detected, or the display is lost; 2 for an
invalid command line.
)";

std::size_t leadingSystemArguments(std::span<char* const> arguments) {
    const std::string_view first = arguments.front();
    if (first.starts_with(processNumber)) {
        return 1;
    }
    if (!first.starts_with(systemSetting)) {
        return 0;
    }
    return arguments.size() > 1 && isValue(arguments[1]) ? 2 : 1;
}

} // namespace glidemap

#include "platform/launch_words.h"

namespace glidemap {

const char* const launchHelp =
    R"(Runs actions for trackpad gestures. If Glidemap is already running, shows its settings window.

  glidemap [--verbose | --diagnose | --version | --help]

  --verbose     log each decision to standard error, but never what is typed
  --diagnose    print a page for a bug report (devices, access, services) and exit
  --version     print the version
  --help        show this help

Glidemap runs in the status bar. Quit it from its menu, with Ctrl+Q in its window, or with SIGTERM.

  GLIDEMAP_LOG=1           the same as --verbose
  GLIDEMAP_TOUCH_DRIVER    the path of another touch driver
  GLIDEMAP_RECORDING       the recording for the replay driver; GLIDEMAP_RECORDING_LOOP=1 repeats it

Exit status: 0 after a normal exit, or when the running instance has shown its window; 1 if the
running instance does not respond, an instance cannot be detected, or the display is lost; 2 for an
invalid command line.
)";

std::size_t leadingSystemArguments(std::span<char* const> /*arguments*/) {
    return 0;
}

} // namespace glidemap

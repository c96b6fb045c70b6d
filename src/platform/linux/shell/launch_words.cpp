#include "platform/launch_words.h"

namespace glidemap {

const char* const launchHelp =
    R"(Runs actions for trackpad gestures. Started again, it shows the settings window
of the running instance.

  glidemap [--verbose | --diagnose | --version | --help]

  --verbose     log each decision to standard error, and never what is typed
  --diagnose    print what Glidemap finds here, as a page for a report, and exit

It lives in the status bar and ends from the menu there, by Ctrl+Q in its window, or by SIGTERM.

  GLIDEMAP_LOG=1           the same as --verbose
  GLIDEMAP_TOUCH_DRIVER    another touch driver, by its path
  GLIDEMAP_RECORDING       what the replay driver plays; GLIDEMAP_RECORDING_LOOP=1 over and over

Exit status: 0 after a normal exit, or once the running instance has shown its window; 1 when the running
instance does not respond, an instance cannot be detected, or the display is lost; 2 for a wrong command line.
)";

std::size_t leadingSystemArguments(std::span<char* const> /*arguments*/) {
    return 0;
}

} // namespace glidemap

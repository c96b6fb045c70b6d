#include "app/launch_options.h"

namespace glidemap {

const char* const launchHelp =
    R"(Runs actions for trackpad gestures. Started again, it shows the settings window of the one that runs.

  glidemap [--version | --help]

It lives in the status bar and ends from the menu there, by Ctrl+Q in its window, or by SIGTERM.

  GLIDEMAP_TOUCH_DRIVER    another touch driver, by its path
  GLIDEMAP_RECORDING       what the replay driver plays; GLIDEMAP_RECORDING_LOOP=1 over and over

Exit status: 0 when it was ended, or the one that runs has shown its window; 1 when the one that runs
does not answer, it cannot be told whether one runs, or the desktop has gone; 2 for a wrong command line.
)";

LaunchOption launchOption(const std::vector<std::string_view>& arguments) {
    if (arguments.empty()) {
        return LaunchOption::run;
    }
    if (arguments.size() == 1 && arguments.front() == "--version") {
        return LaunchOption::version;
    }
    if (arguments.size() == 1 && (arguments.front() == "--help" || arguments.front() == "-h")) {
        return LaunchOption::help;
    }
    return LaunchOption::wrong;
}

} // namespace glidemap

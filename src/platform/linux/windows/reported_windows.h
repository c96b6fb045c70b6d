// Stores the last state that a backend reported to its listener, and reports only changes.
//
// A change of the title alone is reported only for windows without an app id. Otherwise programs
// that show progress in their title would keep the workspace busy.
//
// Thread:  the desktop thread.
// Owner:   a backend.
// Errors:  none.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <optional>
#include <vector>

namespace glidemap {

class ReportedWindows {
public:
    // Reports the current state: completely on the first call, and only changes later. The list of
    // windows is reported before the active window, so that the listener receives an active window
    // as part of the list first.
    void report(WindowListener& listener, std::vector<WindowIdentity> windows,
                std::optional<WindowIdentity> active);

private:
    std::optional<std::vector<WindowIdentity>> reportedWindows;
    std::optional<std::optional<WindowIdentity>> reportedActive;
};

} // namespace glidemap

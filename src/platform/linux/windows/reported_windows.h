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
    // The first call reports the complete state, later calls only the changes. The list of windows
    // is reported before the active window, so that it already contains a window that becomes
    // active.
    void report(WindowListener& listener, std::vector<WindowIdentity> windows,
                std::optional<WindowIdentity> active);

private:
    std::optional<std::vector<WindowIdentity>> reportedWindows;
    std::optional<std::optional<WindowIdentity>> reportedActive;
};

} // namespace glidemap

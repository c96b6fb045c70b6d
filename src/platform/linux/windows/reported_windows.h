// Remembers a backend's last report to its listener, and forwards only changes.
//
// A new title alone is no change if the application is known without it: programs that show
// progress in the title would keep the workspace busy.
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
    // Takes the current state. The first call reports everything, later calls only changes. The
    // windows come first, so that an active window that is listed is already known.
    void report(WindowListener& listener, std::vector<WindowIdentity> windows,
                std::optional<WindowIdentity> active);

private:
    std::optional<std::vector<WindowIdentity>> reportedWindows;
    std::optional<std::optional<WindowIdentity>> reportedActive;
};

} // namespace glidemap

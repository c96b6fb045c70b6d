// Toggles the desktop's own overview of all windows.
//
//   GNOME Shell, Cinnamon   the property OverviewActive, inverted
//   KWin                    its shortcut "Overview", if it exists
//   others                  nothing: Xfce, sway and similar desktops have no overview
//
// Each call looks for the desktop again: shells restart, and a name on the bus is more reliable
// than the session's variables.
//
// Thread:  the main thread; the desktop thread calls the bus.
// Owner:   the program. The destructor cancels pending calls.
// Errors:  none; if the desktop does not reply, nothing is shown.
#pragma once

#include "platform/linux/desktop/bus_request.h"

#include <atomic>
#include <chrono>
#include <memory>

namespace glidemap {

// The result of the last lookup, shared with a pending one on the desktop thread.
struct OverviewLookup {
    std::atomic<bool> mayExist = true;
    std::atomic<bool> isPending = false;
};

class LinuxOverview {
public:
    explicit LinuxOverview(DesktopThread& desktop,
                           std::chrono::milliseconds answerWithin = std::chrono::seconds(1));

    // Does not wait.
    void toggle();

    // Returns false if the last lookup found no overview. Starts the next lookup in the background,
    // unless a lookup is pending: each lookup opens a connection, and the bus limits their number.
    bool mayExist();

private:
    const std::chrono::milliseconds patience;
    std::shared_ptr<OverviewLookup> lookup = std::make_shared<OverviewLookup>();
    BusRequests requests;
};

} // namespace glidemap

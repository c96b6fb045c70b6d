// Toggles the desktop's own overview of all windows.
//
//   GNOME Shell, Cinnamon   inverts the property OverviewActive
//   KWin                    invokes the shortcut "Overview" if it exists
//   others                  does nothing; Xfce, sway and similar desktops have no overview
//
// Each call determines the desktop again, because a shell may restart. It tries the services of
// these shells on the bus, which is more reliable than reading the session's environment variables.
//
// Thread:  the main thread; the desktop thread calls the bus.
// Owner:   the program. The destructor cancels pending calls.
// Errors:  none; if the desktop does not reply, nothing happens.
#pragma once

#include "platform/linux/desktop/bus_request.h"

#include <atomic>
#include <chrono>
#include <memory>

namespace glidemap {

// The result of the last lookup. A pending lookup on the desktop thread shares it.
struct OverviewLookup {
    std::atomic<bool> mayExist = true;
    std::atomic<bool> isPending = false;
};

class LinuxOverview {
public:
    explicit LinuxOverview(DesktopThread& desktop,
                           std::chrono::milliseconds answerWithin = std::chrono::seconds(1));

    // Does not block.
    void toggle();

    // Returns false if the last lookup found no overview. Starts the next lookup in the background.
    // If a lookup is pending, does not start another, because each lookup opens a connection, and
    // the bus limits the number of connections.
    bool mayExist();

private:
    const std::chrono::milliseconds patience;
    std::shared_ptr<OverviewLookup> lookup = std::make_shared<OverviewLookup>();
    BusRequests requests;
};

} // namespace glidemap

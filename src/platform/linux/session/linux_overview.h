// Shows all windows at a glance, by the desktop's own view; shown already, it goes away again.
//
//   GNOME Shell, Cinnamon   the property OverviewActive, set to what it is not
//   KWin                    its shortcut "Overview", where it has one
//   others                  nothing: Xfce, sway and their like have no such view
//
// The desktop is found by asking, each time: shells are restarted, and a name on the bus says more
// than the session's variables.
//
// Thread:  the main thread; the bus is spoken to on the desktop thread.
// Owner:   the program. Destroying it calls off what is under way.
// Errors:  none; a desktop that does not answer shows nothing.
#pragma once

#include "platform/linux/session/bus_errand.h"

#include <chrono>

namespace glidemap {

class LinuxOverview {
public:
    explicit LinuxOverview(DesktopThread& desktop,
                           std::chrono::milliseconds answerWithin = std::chrono::seconds(1));

    // Does not wait.
    void toggle();

private:
    const std::chrono::milliseconds patience;
    BusErrands errands;
};

} // namespace glidemap

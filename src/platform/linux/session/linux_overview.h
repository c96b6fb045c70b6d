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

#include <atomic>
#include <chrono>
#include <memory>

namespace glidemap {

class LinuxOverview {
public:
    explicit LinuxOverview(DesktopThread& desktop,
                           std::chrono::milliseconds answerWithin = std::chrono::seconds(1));

    // Does not wait.
    void toggle();

    // False if none was there when it was last looked for. Looks for it again, in the background.
    bool mayBeThere();

private:
    const std::chrono::milliseconds patience;
    std::shared_ptr<std::atomic<bool>> found = std::make_shared<std::atomic<bool>>(true);
    BusErrands errands;
};

} // namespace glidemap

// What a backend has told its listener so far, so that it tells only what has changed.
//
// A title alone is no change where the application is known without it: programs that show their
// progress there would keep the workspace busy for nothing.
//
// Thread:  the desktop thread.
// Owner:   a backend.
// Errors:  none.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <optional>
#include <vector>

namespace glidemap {

class ToldWindows {
public:
    // How things stand now. The first time everything is told, and from then on what is new:
    // the windows first, so that the active one is always among them if it was listed.
    void tell(WindowListener& listener, std::vector<WindowIdentity> windows,
              std::optional<WindowIdentity> active);

private:
    std::optional<std::vector<WindowIdentity>> toldWindows;
    std::optional<std::optional<WindowIdentity>> toldActive;
};

} // namespace glidemap

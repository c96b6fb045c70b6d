// The windows as a wlroots-family compositor tells them, by zwlr_foreign_toplevel_management.
//
// The protocol names no process, and for windows of X11 programs not even an app id.
//
// Thread:  the desktop thread; changes while the connection dispatches.
// Owner:   the backend; destroyed before its connection.
// Errors:  a compositor that ends its telling has no windows.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <memory>
#include <optional>
#include <vector>

using WaylandDisplay = struct wl_display;

namespace glidemap {

class WlrToplevels {
public:
    explicit WlrToplevels(WaylandDisplay* display);
    WlrToplevels(const WlrToplevels&) = delete;
    WlrToplevels& operator=(const WlrToplevels&) = delete;
    ~WlrToplevels();

    // Whether the compositor tells of windows at all, known after one round trip.
    bool isOffered() const;

    // In the order in which the compositor has told of them.
    std::vector<WindowIdentity> windows() const;

    // With several seats there may be several active ones: the latest, then.
    std::optional<WindowIdentity> active() const;

    // Asks for the focus for the chosen window that was active last. False if there is none, or no
    // seat that could give it the focus.
    bool bringForward(const WindowChoice& isChosen);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

// Lists the windows of a wlroots compositor with the protocol zwlr_foreign_toplevel_management.
//
// The protocol does not report processes. For windows of X11 programs, some compositors report no
// app id either.
//
// Thread:  the desktop thread; the list changes while the connection dispatches events.
// Owner:   the backend, which destroys this object before the connection.
// Errors:  none; if the compositor ends the protocol, the list is empty.
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

    // Whether the compositor supports the protocol. Valid after one round trip.
    bool isOffered() const;

    // Returns the windows in the order of their creation.
    std::vector<WindowIdentity> windows() const;

    // With several seats, several windows may be active. Returns the one that was activated last.
    std::optional<WindowIdentity> active() const;

    // Activates the most recently active window among the selected ones, and restores it if it is
    // minimised. Returns false if no window is selected or the compositor has no seat.
    bool bringForward(const WindowChoice& isChosen);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

// Lists the windows of a wlroots compositor through zwlr_foreign_toplevel_management.
//
// The protocol does not report processes, nor an app id for the windows of X11 programs.
//
// Thread:  the desktop thread; the list changes while the connection dispatches.
// Owner:   the backend, which destroys it before its connection.
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

    // Whether the compositor supports the protocol; known after one round trip.
    bool isOffered() const;

    // In the order of their creation events.
    std::vector<WindowIdentity> windows() const;

    // With several seats several windows may be active; returns the latest one.
    std::optional<WindowIdentity> active() const;

    // Requests the focus for the chosen window that was active last. Returns false if no window or
    // no seat is available.
    bool bringForward(const WindowChoice& isChosen);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

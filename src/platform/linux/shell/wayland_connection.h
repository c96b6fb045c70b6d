// Returns Qt's connection to the Wayland compositor, with the seat of the user's keyboard.
//
// Thread:  the main thread, while the application object exists.
// Owner:   Qt owns the connection and the seat.
// Errors:  returns nullopt outside Wayland, if no keyboard is connected, and in a build with a Qt
//          that does not publish its connection (docs/decisions/0070-recording-desktop-keys.md).
#pragma once

#include <optional>

using WaylandDisplay = struct wl_display;
using WaylandSeat = struct wl_seat;

namespace glidemap {

struct WaylandConnection {
    WaylandDisplay* display;
    WaylandSeat* seat;
};

std::optional<WaylandConnection> waylandConnection();

} // namespace glidemap

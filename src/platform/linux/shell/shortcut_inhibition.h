// Asks a Wayland compositor not to use its own keyboard shortcuts while this program's focused
// window has the keyboard, with the protocol keyboard-shortcuts-inhibit. The request lasts as long
// as this object. The compositor may refuse, or ask the user first.
//
// The protocol accepts only a surface of the same connection. This class therefore shares the
// toolkit's connection, but has an event queue of its own. The toolkit reads the connection. The
// focused surface is known from a keyboard that the class creates for itself: the compositor
// announces the surface to each new keyboard.
//
// Thread:  the thread that dispatches the toolkit's events. No call waits for the compositor.
// Owner:   any; the owner destroys the object before the connection closes.
// Errors:  none; if the compositor does not support the protocol, nothing happens.
#pragma once

#include <memory>

using WaylandDisplay = struct wl_display;
using WaylandSeat = struct wl_seat;

namespace glidemap {

class ShortcutInhibition {
public:
    // The seat must have, or have had, a keyboard: otherwise the compositor would close the
    // connection.
    ShortcutInhibition(WaylandDisplay* display, WaylandSeat* seat);
    ShortcutInhibition(const ShortcutInhibition&) = delete;
    ShortcutInhibition& operator=(const ShortcutInhibition&) = delete;
    ~ShortcutInhibition();

    // Processes the events that the toolkit has read. Call this whenever it has
    // read the connection.
    void dispatchArrived();

    // Whether the compositor has confirmed that it passes its shortcuts on.
    bool isActive() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

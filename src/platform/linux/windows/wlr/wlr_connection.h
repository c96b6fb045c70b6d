// A connection to a Wayland compositor. Every wait has a time limit.
//
// Thread:  the desktop thread.
// Owner:   the backend. It must destroy all objects of the connection before the connection.
// Errors:  after the connection is lost or a protocol error occurs, all calls return false.
#pragma once

#include <chrono>
#include <memory>

using WaylandDisplay = struct wl_display;

namespace glidemap {

class WlrConnection {
public:
    // Returns null if the environment names no compositor, or no compositor listens on its socket.
    static std::unique_ptr<WlrConnection> open();

    explicit WlrConnection(WaylandDisplay* opened) : _display(opened) {}
    WlrConnection(const WlrConnection&) = delete;
    WlrConnection& operator=(const WlrConnection&) = delete;
    ~WlrConnection();

    // Waits until the compositor has processed all earlier requests, and dispatches its events.
    // Returns false on time-out.
    bool roundTrip(std::chrono::milliseconds patience);

    // Dispatches the events that have arrived, and sends pending requests.
    bool dispatchArrived();

    // Returns a descriptor that becomes readable when events arrive.
    int descriptor() const;

    WaylandDisplay* display() const { return _display; }

private:
    bool waitForEvents(std::chrono::steady_clock::time_point deadline) const;

    WaylandDisplay* _display;
};

} // namespace glidemap

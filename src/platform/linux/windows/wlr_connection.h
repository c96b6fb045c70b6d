// A connection to a Wayland compositor that never waits longer than it was told to.
//
// Thread:  the desktop thread.
// Owner:   the backend; whatever was made on the connection is destroyed before it.
// Errors:  a connection that is lost, or a compositor that breaks the protocol, answers false from
//          then on.
#pragma once

#include <chrono>
#include <memory>

using WaylandDisplay = struct wl_display;

namespace glidemap {

class WlrConnection {
public:
    // None if the environment names no compositor, or nobody listens there.
    static std::unique_ptr<WlrConnection> open();

    explicit WlrConnection(WaylandDisplay* opened) : _display(opened) {}
    WlrConnection(const WlrConnection&) = delete;
    WlrConnection& operator=(const WlrConnection&) = delete;
    ~WlrConnection();

    // Waits until the compositor has answered all requests made so far, and runs what its events
    // call. False if it has not within this time.
    bool roundTrip(std::chrono::milliseconds patience);

    // Runs what the events call that have arrived, and sends what that asks for.
    bool dispatchArrived();

    // Readable when there is something to dispatch.
    int descriptor() const;

    WaylandDisplay* display() const { return _display; }

private:
    bool waitForEvents(std::chrono::steady_clock::time_point deadline);

    WaylandDisplay* _display;
};

} // namespace glidemap

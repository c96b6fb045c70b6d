// Requests activation tokens from a Wayland compositor with the protocol xdg_activation. A launched
// program shows its token to the compositor as proof that the user requested the launch.
//
// A request contains neither a surface nor an input serial: Glidemap usually has no focused
// surface, and a gesture is not input from the compositor. Each compositor decides what such a
// token permits.
//
// Thread:  the desktop thread. Tokens arrive while the connection dispatches events.
// Owner:   a window backend, which destroys it before the connection.
// Errors:  the token is empty if the compositor does not support the protocol, refuses, or does not
//          reply in time, or if the connection is lost.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

using WaylandDisplay = struct wl_display;

namespace glidemap {

class XdgActivation {
public:
    using Receiver = std::function<void(const std::string& token)>;

    // Three frames at 60 Hz, because a compositor may finish a frame before it replies. A launch is
    // never delayed longer than this.
    static constexpr std::chrono::milliseconds usualPatience{50};

    XdgActivation(DesktopThread& thread, WaylandDisplay* display,
                  std::chrono::milliseconds patience = usualPatience);
    XdgActivation(const XdgActivation&) = delete;
    XdgActivation& operator=(const XdgActivation&) = delete;

    // Discards pending requests without calling their receivers.
    ~XdgActivation();

    // Requests tokens only if the compositor also supports this interface. Call it before the
    // connection dispatches events.
    void requireInterface(std::string name);

    // Calls the receiver once, immediately or later.
    void requestToken(const std::string& application, Receiver receiver);

    // Completes all pending requests with an empty token. Call it when the connection is lost.
    void abandonRequests();

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

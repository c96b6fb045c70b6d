#include "platform/linux/windows/wlr/wlr_connection.h"

#include "core/open_file.h"
#include "platform/linux/desktop/environment.h"

#include <poll.h>
#include <wayland-client-core.h>
#include <wayland-client-protocol.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <string>

namespace glidemap {

namespace {

using Clock = std::chrono::steady_clock;

int millisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

void onSyncDone(void* answered, wl_callback* /*callback*/, std::uint32_t /*serial*/) {
    *static_cast<bool*>(answered) = true;
}

constexpr wl_callback_listener syncListener = {onSyncDone};

} // namespace

std::unique_ptr<WlrConnection> WlrConnection::open() {
    // Does not connect if WAYLAND_DISPLAY is not set. libwayland would then connect to wayland-0,
    // which may belong to another session.
    const std::string name = fromEnvironment("WAYLAND_DISPLAY");
    if (name.empty()) {
        return nullptr;
    }
    wl_display* const opened = wl_display_connect(name.c_str());
    return opened == nullptr ? nullptr : std::make_unique<WlrConnection>(opened);
}

WlrConnection::~WlrConnection() {
    wl_display_disconnect(_display);
}

int WlrConnection::descriptor() const {
    return wl_display_get_fd(_display);
}

bool WlrConnection::roundTrip(std::chrono::milliseconds patience) {
    const Clock::time_point deadline = Clock::now() + patience;
    bool answered = false;
    wl_callback* const answer = wl_display_sync(_display);
    if (answer == nullptr) {
        return false;
    }
    wl_callback_add_listener(answer, &syncListener, &answered);
    bool connected = dispatchArrived();
    while (connected && !answered && waitForEvents(deadline)) {
        connected = dispatchArrived();
    }
    wl_callback_destroy(answer);
    return connected && answered;
}

bool WlrConnection::waitForEvents(Clock::time_point deadline) const {
    pollfd source{descriptor(), POLLIN, 0};
    return retried([&] { return poll(&source, 1, millisecondsUntil(deadline)); }) > 0;
}

bool WlrConnection::dispatchArrived() {
    while (wl_display_prepare_read(_display) != 0) {
        if (wl_display_dispatch_pending(_display) < 0) {
            return false;
        }
    }
    // Reads and dispatches the events that have arrived, and does not wait for more.
    if (wl_display_read_events(_display) < 0 || wl_display_dispatch_pending(_display) < 0) {
        return false;
    }
    // If the socket is full, the remaining requests are sent after the next events. This is
    // sufficient, because no request is urgent.
    return wl_display_flush(_display) >= 0 || errno == EAGAIN;
}

} // namespace glidemap

#include "platform/linux/shell/compositing.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/x11.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <utility>

namespace glidemap {

namespace {

// A compositing manager owns the selection _NET_WM_CM_Sn, where n is the number of the screen.
bool hasCompositor(xcb_connection_t* server, int screen) {
    const std::uint32_t selection = x11Atom(server, "_NET_WM_CM_S" + std::to_string(screen));
    return x11SelectionHasOwner(server, selection);
}

} // namespace

bool desktopComposites() {
    // Does not connect to the X server under Wayland, because some compositors start Xwayland at
    // the first connection.
    if (!fromEnvironment("WAYLAND_DISPLAY").empty() || fromEnvironment("DISPLAY").empty()) {
        return true;
    }
    int screen = 0;
    const OwnedX11Connection server(xcb_connect(nullptr, &screen));
    return xcb_connection_has_error(server.get()) != 0 || hasCompositor(server.get(), screen);
}

RecentCompositing::RecentCompositing(std::function<bool()> question,
                                     std::function<Clock::time_point()> clock)
    : ask(std::move(question)), now(std::move(clock)) {}

bool RecentCompositing::composites() {
    const Clock::time_point moment = now();
    if (!askedAt || moment - *askedAt >= recently) {
        answer = ask();
        askedAt = moment;
    }
    return answer;
}

} // namespace glidemap

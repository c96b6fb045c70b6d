#include "platform/linux/shell/compositing.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/x11.h"

#include <string>
#include <utility>

namespace glidemap {

bool desktopComposites() {
    // Does not connect to the X server under Wayland, because some compositors start Xwayland at
    // the first connection.
    if (!fromEnvironment("WAYLAND_DISPLAY").empty() || fromEnvironment("DISPLAY").empty()) {
        return true;
    }
    const auto server = X11Connection::open();
    return !server || // the compositing manager owns the selection named _NET_WM_CM_Sn
           server->selectionHasOwner("_NET_WM_CM_S" + std::to_string(server->screen()));
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

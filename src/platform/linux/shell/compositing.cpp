#include "platform/linux/shell/compositing.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

namespace glidemap {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

// The compositing manager owns the selection named _NET_WM_CM_Sn.
bool hasCompositor(xcb_connection_t* server, int screen) {
    const std::string name = "_NET_WM_CM_S" + std::to_string(screen);
    const auto length = static_cast<std::uint16_t>(name.size());
    const auto asked = xcb_intern_atom(server, 1, length, name.c_str());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> atom(
        xcb_intern_atom_reply(server, asked, nullptr));
    if (atom == nullptr || atom->atom == XCB_ATOM_NONE) {
        return false;
    }
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, atom->atom),
                                      nullptr));
    return owner != nullptr && owner->owner != XCB_WINDOW_NONE;
}

} // namespace

bool desktopComposites() {
    // Under Wayland this must not connect: some compositors start Xwayland at the first connection.
    if (isSet("WAYLAND_DISPLAY") || !isSet("DISPLAY")) {
        return true;
    }
    int screen = 0;
    xcb_connection_t* server = xcb_connect(nullptr, &screen);
    const bool composites = xcb_connection_has_error(server) != 0 || hasCompositor(server, screen);
    xcb_disconnect(server);
    return composites;
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

#include "platform/linux/desktop/display.h"

#include "platform/linux/desktop/environment.h"

#include <wayland-client-core.h>
#include <xcb/xcb.h>

namespace glidemap {

namespace {

// Requires the variable: without it the library tries wayland-0, which may belong to another
// session.
bool letsInByWayland() {
    const std::string name = fromEnvironment("WAYLAND_DISPLAY");
    wl_display* const display = name.empty() ? nullptr : wl_display_connect(name.c_str());
    if (display == nullptr) {
        return false;
    }
    wl_display_disconnect(display);
    return true;
}

bool letsInByX11() {
    const std::string name = fromEnvironment("DISPLAY");
    if (name.empty()) {
        return false;
    }
    xcb_connection_t* const connection = xcb_connect(name.c_str(), nullptr);
    const bool isIn = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isIn;
}

} // namespace

bool hasDisplay() {
    return letsInByWayland() || letsInByX11();
}

} // namespace glidemap

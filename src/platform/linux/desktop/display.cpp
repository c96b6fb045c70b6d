#include "platform/linux/desktop/display.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/x11.h"

#include <wayland-client-core.h>

namespace glidemap {

namespace {

// Does not connect if WAYLAND_DISPLAY is not set. libwayland would then connect to wayland-0, which
// may belong to another session.
bool isWaylandDisplayOpen() {
    const std::string name = fromEnvironment("WAYLAND_DISPLAY");
    wl_display* const display = name.empty() ? nullptr : wl_display_connect(name.c_str());
    if (display == nullptr) {
        return false;
    }
    wl_display_disconnect(display);
    return true;
}

bool isX11DisplayOpen() {
    const std::string name = fromEnvironment("DISPLAY");
    return !name.empty() && X11Connection::open(name).has_value();
}

} // namespace

bool hasDisplay() {
    return isWaylandDisplayOpen() || isX11DisplayOpen();
}

} // namespace glidemap

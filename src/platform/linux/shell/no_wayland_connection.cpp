// For a Qt that does not publish its connection to a Wayland compositor.
#include "platform/linux/shell/wayland_connection.h"

namespace glidemap {

std::optional<WaylandConnection> waylandConnection() {
    return std::nullopt;
}

} // namespace glidemap

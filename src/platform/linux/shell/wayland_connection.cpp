#include "platform/linux/shell/wayland_connection.h"

#include <QGuiApplication>

namespace glidemap {

std::optional<WaylandConnection> waylandConnection() {
    const auto* wayland = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    if (wayland == nullptr || wayland->keyboard() == nullptr) {
        return std::nullopt;
    }
    return WaylandConnection{wayland->display(), wayland->seat()};
}

} // namespace glidemap

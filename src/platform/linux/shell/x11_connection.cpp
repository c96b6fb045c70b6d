#include "platform/linux/shell/x11_connection.h"

#include <QGuiApplication>

namespace glidemap {

// Qt's offscreen platform provides this interface, too, but without a connection.
std::optional<X11Connection> x11Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    auto* const connection = x11 != nullptr ? x11->connection() : nullptr;
    return connection != nullptr ? std::optional(X11Connection(connection)) : std::nullopt;
}

} // namespace glidemap

#include "platform/linux/shell/x11_connection.h"

#include <QGuiApplication>

namespace glidemap {

// The connection is null on Qt's offscreen platform, although that platform provides this
// interface.
xcb_connection_t* x11Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

} // namespace glidemap

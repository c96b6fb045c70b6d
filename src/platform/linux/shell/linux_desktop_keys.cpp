#include "platform/linux/shell/linux_desktop_keys.h"

#include "platform/linux/shell/wayland_connection.h"
#include "platform/linux/shell/x11_connection.h"

#include <xcb/xcb.h>

#include <QAbstractEventDispatcher>
#include <optional>

namespace glidemap {

namespace {

// Waits until the server has ended the grab. Otherwise the request could stay in Qt's buffer for a
// while, and the window would still receive the keys.
void waitUntilDone(const X11Connection& server) {
    server.reply(xcb_get_input_focus_reply, xcb_get_input_focus(server.raw()));
}

} // namespace

LinuxDesktopKeys::~LinuxDesktopKeys() {
    giveBack();
}

void LinuxDesktopKeys::captureFor(QWindow& window) {
    if (captureWindow == &window) {
        return;
    }
    giveBack();
    if (x11Connection() ? window.setKeyboardGrabEnabled(true) : inhibitShortcuts()) {
        captureWindow = &window;
    }
}

void LinuxDesktopKeys::giveBack() {
    endInhibition();
    if (captureWindow != nullptr && x11Connection()) {
        captureWindow->setKeyboardGrabEnabled(false);
        waitUntilDone(*x11Connection());
    }
    captureWindow = nullptr;
}

bool LinuxDesktopKeys::areCaptured() const {
    return captureWindow != nullptr && (inhibition == nullptr || inhibition->isActive());
}

// Qt reads from the Wayland connection on another thread, and wakes this thread after each read. So
// when this thread is about to wait again, it dispatches all events that have been read.
bool LinuxDesktopKeys::inhibitShortcuts() {
    const std::optional<WaylandConnection> connection = waylandConnection();
    if (!connection) {
        return false;
    }
    inhibition = std::make_unique<ShortcutInhibition>(connection->display, connection->seat);
    dispatching = QObject::connect(QAbstractEventDispatcher::instance(),
                                   &QAbstractEventDispatcher::aboutToBlock,
                                   [this] { inhibition->dispatchArrived(); });
    return true;
}

void LinuxDesktopKeys::endInhibition() {
    QObject::disconnect(dispatching);
    inhibition.reset();
}

} // namespace glidemap

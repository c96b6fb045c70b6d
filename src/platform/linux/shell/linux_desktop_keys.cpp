#include "platform/linux/shell/linux_desktop_keys.h"

#include "platform/linux/shell/x11_connection.h"

#include <xcb/xcb.h>

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
    if (captureWindow == &window || !x11Connection()) {
        return;
    }
    giveBack();
    if (window.setKeyboardGrabEnabled(true)) {
        captureWindow = &window;
    }
}

void LinuxDesktopKeys::giveBack() {
    if (captureWindow != nullptr) {
        captureWindow->setKeyboardGrabEnabled(false);
        waitUntilDone(*x11Connection());
        captureWindow = nullptr;
    }
}

} // namespace glidemap

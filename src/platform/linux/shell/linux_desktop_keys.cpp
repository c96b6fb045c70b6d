#include "platform/linux/shell/linux_desktop_keys.h"

#include "platform/linux/desktop/x11.h"
#include "platform/linux/shell/x11_connection.h"

#include <xcb/xcb.h>

namespace glidemap {

namespace {

// Waits until the server has processed the request. Otherwise it could stay in Qt's buffer, and the
// window would still receive the keys.
void waitUntilDone(xcb_connection_t* server) {
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

} // namespace

LinuxDesktopKeys::~LinuxDesktopKeys() {
    giveBack();
}

void LinuxDesktopKeys::captureFor(QWindow& window) {
    if (captureWindow == &window || x11Connection() == nullptr) {
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
        waitUntilDone(x11Connection());
        captureWindow = nullptr;
    }
}

} // namespace glidemap

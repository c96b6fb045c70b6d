#include "platform/linux/shell/linux_desktop_keys.h"

#include "platform/linux/shell/x11_connection.h"

#include <xcb/xcb.h>

#include <cstdlib>

namespace glidemap {

namespace {

// The toolkit leaves the request in its buffer, and the next keys would still be the window's.
void waitUntilDone(xcb_connection_t* server) {
    std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

} // namespace

LinuxDesktopKeys::~LinuxDesktopKeys() {
    giveBack();
}

void LinuxDesktopKeys::lendTo(QWindow& window) {
    if (borrower == &window || x11Connection() == nullptr) {
        return;
    }
    giveBack();
    if (window.setKeyboardGrabEnabled(true)) {
        borrower = &window;
    }
}

void LinuxDesktopKeys::giveBack() {
    if (borrower != nullptr) {
        borrower->setKeyboardGrabEnabled(false);
        waitUntilDone(x11Connection());
        borrower = nullptr;
    }
}

} // namespace glidemap

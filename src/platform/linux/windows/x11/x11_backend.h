// Gets the windows of an X server from the EWMH properties of the root window.
//
// The server is queried only when a property has changed; there is no polling. The window manager
// may start, exit or be replaced at any time.
//
// Thread:  the desktop thread. start() connects to the server and blocks; later calls do not.
// Owner:   the workspace.
// Errors:  none; a window that has closed in the meantime is skipped. When the server exits, there
//          are no windows.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <memory>
#include <string>

namespace glidemap {

class X11Backend : public WindowBackend {
public:
    // `display` has the format of DISPLAY. If it is empty, the value of DISPLAY is used.
    explicit X11Backend(DesktopThread& desktop, std::string display = "");
    ~X11Backend() override;

    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;
    void requestToken(const LaunchedApplication& application,
                      std::function<void(const LaunchToken&)> then) override;

private:
    class Session;

    DesktopThread& thread;
    std::string displayName;
    std::shared_ptr<Session> session;
};

} // namespace glidemap

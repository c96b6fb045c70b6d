// Gets the windows of an X server from the root window's EWMH properties.
//
// After a property changes, only that property is queried. The window manager may start, exit or be
// replaced at any time.
//
// Thread:  the desktop thread. start() connects and blocks on the server; no later call blocks.
// Owner:   the workspace.
// Errors:  none; a window that has closed meanwhile is skipped. When the server exits, all windows
//          are gone.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <memory>
#include <string>

namespace glidemap {

class X11Backend : public WindowBackend {
public:
    // `display` is in the format of DISPLAY; if it is empty, DISPLAY is used.
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

// The windows of an X server, by what its window manager tells on the root window (EWMH).
//
// Nothing is asked before a property has changed, and then only what changed. The window manager may
// come, go and be replaced at any time.
//
// Thread:  the desktop thread. start() connects, which waits for the server; nothing waits later.
// Owner:   the workspace.
// Errors:  a window that has gone meanwhile is none. When the server goes, so do all windows.
#pragma once

#include "platform/linux/windows/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <memory>
#include <string>

namespace glidemap {

class X11Backend : public WindowBackend {
public:
    // The display as in DISPLAY, which is meant if it is empty.
    explicit X11Backend(DesktopThread& desktop, std::string display = "");
    ~X11Backend() override;

    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;
    void prove(const LaunchedApplication& application,
               std::function<void(const LaunchProof&)> then) override;

private:
    class Session;

    DesktopThread& thread;
    std::string displayName;
    std::shared_ptr<Session> session;
};

} // namespace glidemap

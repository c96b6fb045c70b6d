// Gets the windows of GNOME Shell from our extension (packaging/gnome-shell), because the shell has
// no other interface for them. The backend reports no windows if the extension is missing, or while
// the screen is locked, because the shell then disables the extension.
//
// Thread:  constructed, started and destroyed on the desktop thread.
// Owner:   the workspace.
// Errors:  messages of an unexpected type are ignored. Only the shell of this session is accepted:
//          the owner of its bus name must be the process that serves the Wayland display.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <memory>

namespace glidemap {

class GnomeWindowBackend final : public WindowBackend {
public:
    GnomeWindowBackend();
    ~GnomeWindowBackend() override;

    // Also returns true if the session is GNOME but the shell or the extension has not started yet.
    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;
    void requestToken(const LaunchedApplication& application,
                      std::function<void(const LaunchToken&)> then) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

// The windows of GNOME Shell, as our extension in it tells them (packaging/gnome-shell): there is
// no other way to learn them. Without it, and while the screen is locked, which ends it for so long,
// there are none.
//
// Thread:  constructed, started and destroyed on the desktop thread.
// Owner:   the workspace.
// Errors:  messages of another shape are ignored. Only the shell of this session is believed: the
//          owner of its name must be the process that serves the Wayland display.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <memory>

namespace glidemap {

class GnomeWindowBackend final : public WindowBackend {
public:
    GnomeWindowBackend();
    ~GnomeWindowBackend() override;

    // True also if the session is GNOME's and the shell, or the extension, still has to come.
    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;
    void prove(const LaunchedApplication& application,
               std::function<void(const LaunchProof&)> then) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

// Gets the windows of sway, Hyprland and other compositors with the wlroots protocol (see
// WlrToplevels).
//
// The active window is the one that the compositor reports as activated; of several, the one that
// was activated last. The protocol reports a window's app id and title, but no process. So the
// frontmost application is the one whose desktop entry fits the app id (ApplicationMatcher). If no
// entry fits, the app id itself identifies the application; without an app id, it is unknown. After
// 100 ms without an active window, no application is frontmost (LinuxWorkspace).
//
// Events that arrive together are reported together. So a focus change, for which the compositor
// sends a deactivation and an activation, is reported as a single change.
//
// Thread:  constructed, started and destroyed on the desktop thread. start() may block on a
//          compositor that replies slowly; no other function does.
// Owner:   the workspace.
// Errors:  none; if the compositor exits, there are no windows. A compositor that starts later
//          belongs to another session.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <chrono>
#include <memory>

namespace glidemap {

class WlrWindowBackend final : public WindowBackend {
public:
    // Much longer than a working compositor takes to reply, even while the machine starts.
    static constexpr std::chrono::milliseconds usualPatience{5000};

    explicit WlrWindowBackend(DesktopThread& thread,
                              std::chrono::milliseconds patience = usualPatience);
    ~WlrWindowBackend() override;

    // Also returns false if the compositor does not reply in time.
    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;
    void requestToken(const LaunchedApplication& application,
                      std::function<void(const LaunchToken&)> then) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

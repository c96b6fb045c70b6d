// Gets the windows of KWin, Plasma's compositor, from a script inside KWin that reports them when
// the list, the active window or a window's application changes (see KWinScriptLoader). If KWin
// restarts, the script is loaded again. Gets activation tokens over Wayland (see KWinLaunchTokens).
//
// Thread:  constructed, started and destroyed on the desktop thread.
// Owner:   the workspace.
// Errors:  none; if KWin is missing or rejects the script, there are no windows. Only reports from
//          the owner of KWin's bus name are accepted.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <memory>

namespace glidemap {

class KWinWindowBackend final : public WindowBackend {
public:
    explicit KWinWindowBackend(DesktopThread& thread);
    ~KWinWindowBackend() override;

    // Also returns true if the session is Plasma but KWin has not started yet.
    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;
    void requestToken(const LaunchedApplication& application,
                      std::function<void(const LaunchToken&)> then) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

// The windows of sway and its relatives (the wlroots family, Hyprland, and who else offers their
// protocol): see WlrToplevels.
//
// What the compositor sends at once is told at once, so that a change of focus, which is one window
// becoming inactive and another one active, is one change of the active window.
//
// Thread:  constructed, started and destroyed on the desktop thread, which may wait in start() for
//          a compositor that is slow to answer; nobody else does.
// Owner:   the workspace.
// Errors:  a compositor that dies has no windows; one that comes later is another session's.
#pragma once

#include "platform/linux/windows/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <chrono>
#include <memory>

namespace glidemap {

class WlrWindowBackend final : public WindowBackend {
public:
    // Far longer than a living compositor takes, even on a machine that is just starting.
    static constexpr std::chrono::milliseconds usualPatience{5000};

    explicit WlrWindowBackend(DesktopThread& thread,
                              std::chrono::milliseconds patience = usualPatience);
    ~WlrWindowBackend() override;

    // False also if the compositor does not answer in time.
    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

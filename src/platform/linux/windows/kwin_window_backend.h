// The windows of KWin, Plasma's compositor: a script that runs in it calls back whenever they
// change (see KWinScriptLoader). KWin may restart; the script is loaded again, then.
//
// Thread:  constructed, started and destroyed on the desktop thread.
// Owner:   the workspace.
// Errors:  a KWin that is away, or does not want the script, has no windows. A report is believed
//          only if it comes from the owner of KWin's name.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <memory>

namespace glidemap {

class KWinWindowBackend final : public WindowBackend {
public:
    KWinWindowBackend();
    ~KWinWindowBackend() override;

    // True also if the session is Plasma's and KWin still has to come.
    bool start(WindowListener& listener) override;
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap

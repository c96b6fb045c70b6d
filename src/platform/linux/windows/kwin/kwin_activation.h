// Activates windows of KWin. Only a script that runs inside KWin can do this.
//
// KWin numbers a new script by the number of loaded scripts. After a script has been unloaded, the
// next one can therefore have the number of an older script. A call of its object then reaches the
// older script and has no effect. KWin can also start all scripts that do not run yet, so each
// script is started in both ways. The second way does not report the end of the script, so KWin
// keeps the script for some time.
//
// Thread:  the desktop thread.
// Owner:   the backend, while KWin is on the bus. The destructor unloads all scripts.
// Errors:  activate() calls `otherwise` if KWin cannot run the script.
#pragma once

#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <functional>
#include <memory>
#include <string>

namespace glidemap {

class KWinActivations {
public:
    // `owner` is KWin's unique bus name.
    KWinActivations(DesktopThread& thread, DesktopBus& bus, std::string owner);
    KWinActivations(const KWinActivations&) = delete;
    KWinActivations& operator=(const KWinActivations&) = delete;
    ~KWinActivations();

    void activate(const std::string& handle, std::function<void()> otherwise);

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap

// Loads the script into one running KWin, and unloads it again.
//
// KWin owns its bus name before its scripting interface exists. While it starts it sends several
// signals, the last one when scripting is available. The loader retries after each signal, so it
// needs no timer.
//
// Thread:  the desktop thread.
// Owner:   the backend, while KWin is on the bus.
// Errors:  calls `refused` if KWin rejects the script for good.
#pragma once

#include "platform/linux/desktop/desktop_bus.h"

#include <functional>
#include <memory>
#include <string>

namespace glidemap {

class KWinScriptLoader {
public:
    // `owner` is KWin's unique bus name, so that a later owner of the well-known name is not
    // called.
    KWinScriptLoader(DesktopBus& bus, std::string owner, std::function<void()> refused);
    KWinScriptLoader(const KWinScriptLoader&) = delete;
    KWinScriptLoader& operator=(const KWinScriptLoader&) = delete;

    // Unloads the script.
    ~KWinScriptLoader();

    const std::string& owner() const;

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap

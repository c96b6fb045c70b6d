// Loads the script that reports windows into a running KWin, and unloads it.
//
// KWin owns its bus name before its scripting interface exists. While KWin starts, it emits several
// signals, the last one when scripting is available. The loader tries again after each signal, so
// it needs no timer.
//
// Thread:  the desktop thread.
// Owner:   the backend, while KWin is on the bus.
// Errors:  calls `refused` if the script's file cannot be written, or if KWin permanently rejects
//          the script.
#pragma once

#include "platform/linux/desktop/desktop_bus.h"

#include <functional>
#include <memory>
#include <string>

namespace glidemap {

class KWinScriptLoader {
public:
    // `owner` is KWin's unique bus name. With the well-known name, calls could reach a later owner
    // of that name.
    KWinScriptLoader(DesktopBus& bus, std::string owner, std::function<void()> refused);
    KWinScriptLoader(const KWinScriptLoader&) = delete;
    KWinScriptLoader& operator=(const KWinScriptLoader&) = delete;

    // Unloads the script.
    ~KWinScriptLoader();

    // Call this for each report of the script. Removes the script's file, which KWin has read.
    void reportReceived();

    const std::string& owner() const;

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap

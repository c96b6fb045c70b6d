// Gets the script into one running KWin, and out of it again.
//
// KWin's name is on the bus before its scripting is. It says this and that on the bus while it
// starts, last of all when scripting is there; after each of these it is asked again, and so there
// is no timer.
//
// Thread:  the desktop thread.
// Owner:   the backend, from KWin's appearing to its vanishing.
// Errors:  a script that KWin refuses for good is told as that.
#pragma once

#include "platform/linux/windows/desktop_bus.h"

#include <functional>
#include <memory>
#include <string>

namespace glidemap {

class KWinScriptLoader {
public:
    // The owner is KWin's unique name: what another one of its name does is no concern of this.
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

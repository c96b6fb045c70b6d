// Activates windows of KWin. Only a script that runs inside KWin can do this.
//
// KWin uses the count of loaded scripts as the number of a new script. After an unload, a new
// script can therefore have the number of an older one. Its method run() then reaches the older
// script and has no effect. So the program also calls start(), which starts all loaded scripts that
// do not run yet. start() does not report when a script ends, so the script stays loaded for some
// time.
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

// Gives the focus to a window of KWin's: only a script that runs in it can.
//
// Thread:  the desktop thread.
// Owner:   the answers to its own calls keep it alive; nothing is called once the bus has gone.
// Errors:  told to `otherwise`.
#pragma once

#include "platform/linux/windows/desktop_bus.h"

#include <functional>
#include <string>

namespace glidemap {

// The owner is KWin's unique name.
void activateInKWin(DesktopBus& bus, const std::string& owner, const std::string& handle,
                    std::function<void()> otherwise);

} // namespace glidemap

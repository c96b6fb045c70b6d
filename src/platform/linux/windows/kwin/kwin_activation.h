// Activates a window of KWin. Only a script that runs inside KWin can do this.
//
// Thread:  the desktop thread.
// Owner:   the callbacks of the bus calls own the activation. No callback runs after the bus is
//          destroyed.
// Errors:  calls `otherwise` if KWin cannot run the script.
#pragma once

#include "platform/linux/desktop/desktop_bus.h"

#include <functional>
#include <string>

namespace glidemap {

// `owner` is KWin's unique bus name.
void activateInKWin(DesktopBus& bus, const std::string& owner, const std::string& handle,
                    std::function<void()> otherwise);

} // namespace glidemap

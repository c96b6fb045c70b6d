// Activates a window on X11 even if another window has the focus, and completes the launcher's
// startup notification.
//
// Thread:  the connection's thread.
// Errors:  none.
#pragma once

#include "platform/linux/desktop/x11.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// Returns the timestamp in the startup id. If the id contains no timestamp, returns 0, which stands
// for the current time.
std::uint32_t timeOfLaunch(std::string_view startupID);

// Returns the message that completes the startup notification, split into pieces that fit into
// client messages. The last piece ends with a null byte.
std::vector<std::string> endOfLaunch(std::string_view startupID);

// `startupID` may be empty.
void activateOnX11(const X11Connection& connection, std::uint32_t window,
                   std::string_view startupID);

// Completes the launcher's startup notification without an activation. `window` identifies the
// program.
void endLaunchOnX11(const X11Connection& connection, std::uint32_t window,
                    std::string_view startupID);

} // namespace glidemap

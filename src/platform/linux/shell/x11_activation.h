// Activates a window on X11 even if another one has the focus, and completes the launcher's startup
// notification.
//
// Thread:  the connection's thread.
// Errors:  none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using xcb_connection_t = struct xcb_connection_t;

namespace glidemap {

// The timestamp in the startup identifier; 0, which means now, if it has none.
std::uint32_t timeOfLaunch(std::string_view startupID);

// The broadcast message, split into pieces of a client message; the last ends with a 0.
std::vector<std::string> endOfLaunch(std::string_view startupID);

// `startupID` may be empty.
void activateOnX11(xcb_connection_t* connection, std::uint32_t window, std::string_view startupID);

// Completes the launcher's startup notification without an activation. `window` identifies the
// program.
void endLaunchOnX11(xcb_connection_t* connection, std::uint32_t window, std::string_view startupID);

} // namespace glidemap

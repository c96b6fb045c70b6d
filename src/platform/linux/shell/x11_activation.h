// Bringing a window forward on X11 against whatever else has the focus, and telling a launcher that
// what it launched has come.
//
// Thread:  the one that uses the connection.
// Errors:  none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using xcb_connection_t = struct xcb_connection_t;

namespace glidemap {

// When the user launched it, as the identifier tells; 0, which stands for now, where it does not.
std::uint32_t timeOfLaunch(std::string_view startupID);

// What is broadcast, in the pieces that a message can carry, the last with a 0 at its end.
std::vector<std::string> endOfLaunch(std::string_view startupID);

// The identifier of the launch may be empty.
void activateOnX11(xcb_connection_t* connection, std::uint32_t window, std::string_view startupID);

} // namespace glidemap

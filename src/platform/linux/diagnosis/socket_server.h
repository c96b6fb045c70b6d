// Finds the program that listens on a Unix socket. For the socket of a display, this is the
// compositor or the X server.
//
// Thread:  any; does not block.
// Errors:  none; the name is empty if the program cannot be determined.
#pragma once

#include <string>

namespace glidemap {

// Returns the program's name, truncated by the kernel, as in "kwin_wayland_wr". Returns an empty
// string if no program listens. A path that begins with "@" stands for an abstract socket.
std::string programListeningOn(const std::string& path);

} // namespace glidemap

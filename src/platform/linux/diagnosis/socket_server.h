// Finds the program that listens on a Unix socket: for a display, the compositor or the X server.
//
// Thread:  any; does not wait.
// Errors:  none; the name is empty if the program cannot be determined.
#pragma once

#include <string>

namespace glidemap {

// The name is truncated by the kernel, as in "kwin_wayland_wr". Empty if no program listens. A path
// that begins with "@" is an abstract socket.
std::string programListeningOn(const std::string& path);

} // namespace glidemap

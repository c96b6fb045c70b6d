// Which program listens on a Unix socket: for a display, the compositor or the X server.
//
// Thread:  any; does not wait.
// Errors:  none; a program that cannot be found out has no name.
#pragma once

#include <string>

namespace glidemap {

// As the kernel shortens it, "kwin_wayland_wr". Empty where no program listens. A path that
// begins with "@" is a name without a file.
std::string programListeningOn(const std::string& path);

} // namespace glidemap

// Which process serves the Wayland display of this session.
//
// Thread:  any; waits for nothing: a connection is made and closed again.
// Errors:  nullopt if the display cannot be reached, or if the system does not tell.
#pragma once

#include <sys/types.h>

#include <optional>

namespace glidemap {

// Of WAYLAND_DISPLAY, in XDG_RUNTIME_DIR.
std::optional<pid_t> compositorProcess();

} // namespace glidemap

// Finds the process that serves the Wayland display of this session.
//
// Thread:  any; does not block. Connects to the display and disconnects.
// Errors:  returns nullopt if the display cannot be reached, or if the system does not report the
//          process.
#pragma once

#include <sys/types.h>

#include <optional>

namespace glidemap {

// Returns the process that serves WAYLAND_DISPLAY in XDG_RUNTIME_DIR.
std::optional<pid_t> compositorProcess();

} // namespace glidemap

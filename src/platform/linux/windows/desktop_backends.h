// Returns the window backends to try in this session, in order. No other file refers to all
// backends.
//
// Thread:  any; reads the environment.
// Errors:  none; without a desktop the list is empty.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <string_view>
#include <vector>

namespace glidemap {

enum class DesktopKind { gnome, kwin, wlroots, x11 };

// The arguments are the values of WAYLAND_DISPLAY and DISPLAY, or empty. Under Wayland, the
// backends for the protocols of compositors come first. X11 is last, because it provides only the
// windows of X11 programs.
std::vector<DesktopKind> desktopsToTry(std::string_view waylandDisplay, std::string_view display);

std::vector<WindowBackendFactory> desktopBackends(DesktopThread& thread);

} // namespace glidemap

// Lists the backends to try in this session, in order. Only this file knows all of them.
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

// Takes the values of WAYLAND_DISPLAY and DISPLAY, empty if unset. Under Wayland each compositor
// has its own protocol. X11 comes last there, because it shows only the windows of X11 programs.
std::vector<DesktopKind> desktopsToTry(std::string_view waylandDisplay, std::string_view display);

std::vector<WindowBackendFactory> desktopBackends(DesktopThread& thread);

} // namespace glidemap

// Which backends to try in this session, and in which order: the one place that names them all.
//
// Thread:  any; reads the environment.
// Errors:  none. Without a desktop there is nothing to try.
#pragma once

#include "platform/linux/windows/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <string_view>
#include <vector>

namespace glidemap {

enum class DesktopKind { gnome, kwin, wlroots, x11 };

// By the values of WAYLAND_DISPLAY and DISPLAY, empty if unset. Under Wayland each compositor is
// known by its own way of telling, and X11 comes last: it shows only the windows of X11 programs,
// which are better than none.
std::vector<DesktopKind> desktopsToTry(std::string_view waylandDisplay, std::string_view display);

std::vector<WindowBackendFactory> desktopBackends(DesktopThread& thread);

} // namespace glidemap

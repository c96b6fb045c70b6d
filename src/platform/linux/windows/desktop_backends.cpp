#include "platform/linux/windows/desktop_backends.h"

#include "core/log.h"
#include "platform/linux/desktop/environment.h"
#include "platform/linux/windows/gnome/gnome_window_backend.h"
#include "platform/linux/windows/kwin/kwin_window_backend.h"
#include "platform/linux/windows/wlr/wlr_window_backend.h"
#include "platform/linux/windows/x11/x11_backend.h"

#include <array>
#include <cstddef>
#include <memory>

namespace glidemap {

namespace {

const char* nameOf(DesktopKind kind) {
    constexpr std::array names = {"GNOME Shell", "KWin", "wlroots", "X11"};
    return names[static_cast<std::size_t>(kind)];
}

std::unique_ptr<WindowBackend> makeBackend(DesktopKind kind, DesktopThread& thread) {
    switch (kind) {
    case DesktopKind::gnome:
        return std::make_unique<GnomeWindowBackend>();
    case DesktopKind::kwin:
        return std::make_unique<KWinWindowBackend>(thread);
    case DesktopKind::wlroots:
        return std::make_unique<WlrWindowBackend>(thread);
    case DesktopKind::x11:
        break;
    }
    return std::make_unique<X11Backend>(thread);
}

} // namespace

std::vector<DesktopKind> desktopsToTry(std::string_view waylandDisplay, std::string_view display) {
    std::vector<DesktopKind> kinds;
    if (!waylandDisplay.empty()) {
        kinds = {DesktopKind::gnome, DesktopKind::kwin, DesktopKind::wlroots};
    }
    if (!display.empty()) {
        kinds.push_back(DesktopKind::x11);
    }
    return kinds;
}

std::vector<WindowBackendFactory> desktopBackends(DesktopThread& thread) {
    std::vector<WindowBackendFactory> factories;
    for (const DesktopKind kind :
         desktopsToTry(fromEnvironment("WAYLAND_DISPLAY"), fromEnvironment("DISPLAY"))) {
        factories.emplace_back([kind, &thread] {
            logLine("windows", "tries ", nameOf(kind));
            return makeBackend(kind, thread);
        });
    }
    return factories;
}

} // namespace glidemap

#include "platform/linux/keyboard/session_held_modifiers.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/keyboard/sway_held_modifiers.h"
#include "platform/linux/keyboard/x11_held_modifiers.h"
#include "platform/linux/keyboard/x11_server.h"

#include <string>
#include <utility>

namespace glidemap {

namespace {

// Returns false under Wayland even if DISPLAY is set, because Xwayland receives only the keys that
// are typed into X11 windows.
bool isX11Session() {
    const bool isWayland = !fromEnvironment("WAYLAND_DISPLAY").empty() ||
                           fromEnvironment("XDG_SESSION_TYPE") == "wayland";
    return !fromEnvironment("DISPLAY").empty() && !isWayland;
}

} // namespace

std::unique_ptr<HeldModifiers> heldModifiersOfThisSession(DesktopThread& desktop) {
    if (!isX11Session()) {
        const std::string socket = fromEnvironment("SWAYSOCK");
        return !socket.empty() ? std::make_unique<SwayHeldModifiers>(desktop, socket) : nullptr;
    }
    auto server = X11Server::connect();
    return server != nullptr ? std::make_unique<X11HeldModifiers>(desktop, std::move(server))
                             : nullptr;
}

} // namespace glidemap

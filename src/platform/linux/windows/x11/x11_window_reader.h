// Reads the properties of a window from the X server.
//
// Thread:  one; the desktop thread in the program.
// Owner:   X11Backend.
// Errors:  none. Programs may set arbitrary properties: invalid ones are ignored, and long ones are
//          truncated.
#pragma once

#include "platform/linux/windows/window_backend.h"
#include "platform/linux/windows/x11/x11_requests.h"

#include <xcb/xcb.h>

#include <functional>
#include <string>
#include <vector>

namespace glidemap {

struct X11Window {
    WindowIdentity identity;
    bool isGone = false;
    bool isApplicationWindow = true; // false for panels, menus, splash screens and similar windows

    friend bool operator==(const X11Window&, const X11Window&) = default;
};

class X11WindowReader {
public:
    explicit X11WindowReader(X11Requests& through);

    // Calls `taker` when the server has replied.
    void read(xcb_window_t window, std::function<void(const X11Window&)> taker);

    // Whether the window must be read again after a change of this property. A change of the title
    // does not require it.
    bool reads(xcb_atom_t property) const;

private:
    struct Atoms {
        xcb_atom_t process, machine, type, state, title;
        xcb_atom_t typeNormal, typeDialog, typeUtility, skipTaskbar;
    };
    struct Reading;

    bool isApplicationWindow(const std::vector<xcb_atom_t>& types,
                             const std::vector<xcb_atom_t>& states) const;

    X11Requests& requests;
    Atoms atoms{};
    std::string hostName;
};

} // namespace glidemap

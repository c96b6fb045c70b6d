// Reads what a window of the X server says about itself.
//
// Thread:  one; the desktop thread in the program.
// Owner:   X11Backend.
// Errors:  none. Properties are whatever a program wrote: those of a wrong shape say nothing, and
//          long ones are cut.
#pragma once

#include "platform/linux/windows/window_backend.h"
#include "platform/linux/windows/x11_requests.h"

#include <xcb/xcb.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct X11Window {
    WindowIdentity identity;
    bool isGone = false;
    bool isApplications = true; // rather than the desktop's furniture: panels, menus, splashes

    friend bool operator==(const X11Window&, const X11Window&) = default;
};

class X11WindowReader {
public:
    explicit X11WindowReader(X11Requests& through);

    // The answer comes when the server's has.
    void read(xcb_window_t window, std::function<void(const X11Window&)> taker);

    // Whether what read() tells may be different after that property has changed.
    bool reads(xcb_atom_t property) const;

private:
    struct Atoms {
        xcb_atom_t process, machine, type, state, title;
        xcb_atom_t typeNormal, typeDialog, typeUtility, skipTaskbar;
    };
    struct Reading;

    bool isApplications(const std::vector<xcb_atom_t>& types,
                        const std::vector<xcb_atom_t>& states) const;

    X11Requests& requests;
    Atoms atoms{};
    std::string hostName;
};

// By name, all in one round trip; this one waits.
std::vector<xcb_atom_t> internAtoms(xcb_connection_t* connection,
                                    const std::vector<std::string_view>& names);

} // namespace glidemap

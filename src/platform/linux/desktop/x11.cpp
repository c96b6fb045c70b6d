#include "platform/linux/desktop/x11.h"

#include <xcb/xcb.h>

#include <cstdlib>

namespace glidemap {

void X11Release::operator()(void* allocated) const {
    std::free(allocated);
}

void X11Release::operator()(xcb_connection_t* connection) const {
    xcb_disconnect(connection);
}

std::vector<std::uint32_t> x11Atoms(xcb_connection_t* connection,
                                    const std::vector<std::string_view>& names) {
    std::vector<xcb_intern_atom_cookie_t> cookies;
    cookies.reserve(names.size());
    for (const std::string_view name : names) {
        cookies.push_back(
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    }
    std::vector<std::uint32_t> atoms;
    atoms.reserve(names.size());
    for (const auto cookie : cookies) {
        const X11Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookie, nullptr));
        atoms.push_back(reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom);
    }
    return atoms;
}

std::uint32_t x11Atom(xcb_connection_t* connection, std::string_view name) {
    return x11Atoms(connection, {name}).front();
}

bool x11SelectionHasOwner(xcb_connection_t* connection, std::uint32_t selection) {
    const X11Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, selection), nullptr));
    return reply != nullptr && reply->owner != XCB_WINDOW_NONE;
}

} // namespace glidemap

// Owning pointers for memory that libxcb allocates, and requests that several services send. These
// requests block until the server replies.
//
// Thread:  the connection's thread.
// Errors:  if a request fails or the connection is lost, the result is XCB_ATOM_NONE or false.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

using xcb_connection_t = struct xcb_connection_t;

namespace glidemap {

struct X11Release {
    void operator()(void* allocated) const; // frees a reply, an event or an error
    void operator()(xcb_connection_t* connection) const;
};

template <typename Reply>
using X11Reply = std::unique_ptr<Reply, X11Release>;
using OwnedX11Connection = std::unique_ptr<xcb_connection_t, X11Release>;

// Sends all requests before waiting for replies, so the server is waited for only once.
std::vector<std::uint32_t> x11Atoms(xcb_connection_t* connection,
                                    const std::vector<std::string_view>& names);
std::uint32_t x11Atom(xcb_connection_t* connection, std::string_view name);

// Whether a program owns the selection. Some desktop services announce their presence with a
// selection.
bool x11SelectionHasOwner(xcb_connection_t* connection, std::uint32_t selection);

} // namespace glidemap

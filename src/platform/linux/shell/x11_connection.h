// Returns Qt's connection to the X server.
//
// Thread:  the main thread, while the application object exists.
// Errors:  returns null outside X11.
#pragma once

using xcb_connection_t = struct xcb_connection_t;

namespace glidemap {

xcb_connection_t* x11Connection();

} // namespace glidemap

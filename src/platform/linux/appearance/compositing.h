// Whether the desktop blends windows: only then can one be translucent and have soft edges.
//
// Thread:  any; asks the X server and waits for its answer, well below a millisecond.
// Errors:  a server that cannot be reached has no windows to blend: true.
#pragma once

namespace glidemap {

// Wayland always blends. An X server does where a program says that it composes the screen.
bool desktopComposites();

} // namespace glidemap

// Returns Qt's connection to the X server.
//
// Thread:  the main thread, while the application object exists.
// Errors:  returns nullopt outside X11.
#pragma once

#include "platform/linux/desktop/x11.h"

#include <optional>

namespace glidemap {

std::optional<X11Connection> x11Connection();

} // namespace glidemap

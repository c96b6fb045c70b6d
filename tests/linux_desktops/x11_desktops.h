// The X11 desktops of the table.
//
// Thread:  one.
// Errors:  as Desktop has them.
#pragma once

#include "desktop.h"

#include <memory>

namespace glidemap::desktops {

std::unique_ptr<Desktop> startOpenbox();
std::unique_ptr<Desktop> startXfce();
std::unique_ptr<Desktop> startCinnamon();

// The command of a bus service's file, empty if there is no such file.
std::string commandOfService(const std::string& name);

} // namespace glidemap::desktops

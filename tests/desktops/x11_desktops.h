// The X11 desktops of README.md's table.
//
// Thread:  one.
// Errors:  as for Desktop.
#pragma once

#include "desktop.h"

#include <memory>

namespace glidemap::test {

std::unique_ptr<Desktop> startOpenbox();
std::unique_ptr<Desktop> startXfce();
std::unique_ptr<Desktop> startCinnamon();

// Returns the command in a D-Bus service file; empty if the file does not exist.
std::string commandOfService(const std::string& name);

} // namespace glidemap::test

// The Wayland desktops of README.md's table.
//
// Thread:  one.
// Errors:  as for Desktop.
#pragma once

#include "desktop.h"

#include <memory>

namespace glidemap::test {

std::unique_ptr<Desktop> startGnomeShell();
std::unique_ptr<Desktop> startKWin();
std::unique_ptr<Desktop> startSway();
std::unique_ptr<Desktop> startLabwc();

} // namespace glidemap::test

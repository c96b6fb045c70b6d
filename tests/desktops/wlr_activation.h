// Activates a window on a compositor of the wlroots family, as a task bar does it.
//
// Thread:  any.
// Errors:  a window that the compositor does not list is a failure of the test.
#pragma once

#include "desktops/program.h"

#include <string>

namespace glidemap::desktops {

void activateOnWlroots(const Environment& desktop, const std::string& appID);

void minimizeOnWlroots(const Environment& desktop, const std::string& appID);

} // namespace glidemap::desktops

// Activates or minimises a window on a wlroots compositor, as a task bar does.
//
// Thread:  any.
// Errors:  a window that the compositor does not list fails the test.
#pragma once

#include "desktops/program.h"

#include <string>

namespace glidemap::test {

void activateOnWlroots(const Environment& desktop, const std::string& appID);

void minimizeOnWlroots(const Environment& desktop, const std::string& appID);

} // namespace glidemap::test

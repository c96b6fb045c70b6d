// Reads environment variables, and splits lists in them.
//
// Thread:  any, while no thread changes the environment.
// Errors:  none; a missing variable is empty.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

std::string fromEnvironment(const char* variable);

// Returns all variables in the form "NAME=value".
std::vector<std::string> ownEnvironment();

// Skips empty elements.
std::vector<std::string> splitAtColons(std::string_view text);

// Whether XDG_CURRENT_DESKTOP contains this name ("KDE", "GNOME").
bool isCurrentDesktop(const std::string& desktop);

} // namespace glidemap

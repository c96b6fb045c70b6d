// Reads the properties of the program's own bundle.
//
// Thread:  the main thread.
// Errors:  the functions return nullopt if the value is missing. A program without a bundle has no
//          version.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

// Returns the version for users, such as 1.4.2.
std::optional<std::string> bundleShortVersion();

// Returns the path of the executable, even without a bundle. Does not need the application object.
std::optional<std::string> programPath();

} // namespace glidemap

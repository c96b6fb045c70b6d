// What the program's own bundle says about it.
//
// Thread:  the main thread.
// Errors:  as answers: a program without a bundle has no version.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

// As people read it, such as 1.4.2.
std::optional<std::string> bundleShortVersion();

// The file of the program that runs, also where it is in no bundle. Needs no application object.
std::optional<std::string> programPath();

} // namespace glidemap

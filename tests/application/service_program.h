// Where the program lies that owns a name on the message bus: it differs between distributions, and the
// bus has to know, too.
//
// Thread:  any.
#pragma once

#include <string>

namespace glidemap::application {

// Empty if it is not installed.
std::string serviceProgram(const std::string& name);

bool isServiceInstalled(const std::string& name);

} // namespace glidemap::application

// Finds the program that owns a name on the message bus. Its path differs between distributions;
// the bus's service files contain it.
//
// Thread:  any.
#pragma once

#include <string>

namespace glidemap::application {

// Returns an empty string if the name has no service file.
std::string serviceProgram(const std::string& name);

bool isServiceInstalled(const std::string& name);

} // namespace glidemap::application

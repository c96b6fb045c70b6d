// Finds the program that the message bus starts to provide a name. The program's path differs
// between distributions, so it is read from the bus's service files.
//
// Thread:  any.
#pragma once

#include <string>

namespace glidemap::test {

// Returns an empty string if the name has no service file.
std::string serviceProgram(const std::string& name);

bool isServiceInstalled(const std::string& name);

} // namespace glidemap::test

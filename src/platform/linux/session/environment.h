// Variables of the environment, and the lists that they hold.
//
// Thread:  any, while nobody changes the environment.
// Errors:  none; a variable that is not there is empty.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

std::string fromEnvironment(const char* variable);

// All variables, as "NAME=value".
std::vector<std::string> ownEnvironment();

// Without the empty ones.
std::vector<std::string> splitAtColons(std::string_view text);

} // namespace glidemap

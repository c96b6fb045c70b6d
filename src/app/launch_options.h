// What the program was started for.
//
// Errors:  values; nothing is printed here. The program takes no files and no options of the toolkit.
#pragma once

#include <string_view>
#include <vector>

namespace glidemap {

enum class LaunchOption { run, runVerbosely, diagnose, version, help, wrong };

LaunchOption launchOption(const std::vector<std::string_view>& arguments);

extern const char* const launchHelp;

} // namespace glidemap

// Finds the user's folders by the XDG base directory rules. A variable that is not an absolute path
// is ignored. Unlike GLib, these functions read the variable each time.
//
// Thread:  any, while no thread changes the environment; reads it, not the disk.
// Errors:  none; without a home folder the paths start at the root.
#pragma once

#include <filesystem>
#include <vector>

namespace glidemap {

std::filesystem::path userConfigurationFolder();
std::filesystem::path userDataFolder();

// For state that the user can lose without harm.
std::filesystem::path userStateFolder();

// For files that disappear when the user logs out. If the session has no such folder, returns a
// private folder that persists.
std::filesystem::path userRuntimeFolder();

// In order of precedence.
std::vector<std::filesystem::path> systemConfigurationFolders();

} // namespace glidemap

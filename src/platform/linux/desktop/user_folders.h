// Finds the user's folders according to the XDG base directory rules. A variable that is not an
// absolute path is ignored. Unlike GLib, these functions read the variable on each call.
//
// Thread:  any, while no thread changes the environment; does not access the disk.
// Errors:  none; without a home folder, the paths start at the root folder.
#pragma once

#include <filesystem>
#include <vector>

namespace glidemap {

std::filesystem::path userConfigurationFolder();
std::filesystem::path userDataFolder();

// Returns the folder for state whose loss is harmless.
std::filesystem::path userStateFolder();

// Returns the folder for files that are deleted when the user logs out. If the session has no such
// folder, returns a private folder whose files persist.
std::filesystem::path userRuntimeFolder();

// Returns the folders in order of precedence.
std::vector<std::filesystem::path> systemConfigurationFolders();

} // namespace glidemap

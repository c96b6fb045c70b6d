// Where a user's files are, by the XDG base directories. A variable that is not an absolute path
// counts as not given.
//
// Thread:  the main thread; reads the environment, no disk.
// Errors:  none; without a home the folders are the root's.
#pragma once

#include <filesystem>
#include <vector>

namespace glidemap {

std::filesystem::path userConfigurationFolder();
std::filesystem::path userDataFolder();

// For what the program remembers by itself, and the user can lose without a loss.
std::filesystem::path userStateFolder();

// For what is gone when the user has logged out. Where the session has no such folder, one that is
// as much the user's own and stays.
std::filesystem::path userRuntimeFolder();

// The most important first.
std::vector<std::filesystem::path> systemConfigurationFolders();

} // namespace glidemap

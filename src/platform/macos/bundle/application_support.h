// Returns the path of the user's Application Support folder.
//
// Thread:  the main thread; the system may determine the path without reading the disk.
// Errors:  returns nullopt if the system reports no such folder; the caller decides what to do.
#pragma once

#include <filesystem>
#include <optional>

namespace glidemap {

// All programs share this folder. It may not exist yet.
std::optional<std::filesystem::path> applicationSupportFolder();

} // namespace glidemap

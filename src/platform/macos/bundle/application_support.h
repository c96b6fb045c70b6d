// Finds the user's Application Support folder.
//
// Thread:  the main thread; the system may find it without reading the disk.
// Errors:  returns nullopt; the caller decides how to run without the folder.
#pragma once

#include <filesystem>
#include <optional>

namespace glidemap {

// All programs share this folder; it may not exist yet.
std::optional<std::filesystem::path> applicationSupportFolder();

} // namespace glidemap

// Returns the path of the user's Application Support folder.
//
// Thread:  the main thread.
// Errors:  returns nullopt if the system reports no such folder.
#pragma once

#include <filesystem>
#include <optional>

namespace glidemap {

// All programs of the user share this folder. It does not necessarily exist yet.
std::optional<std::filesystem::path> applicationSupportFolder();

} // namespace glidemap

// Where the user's programs keep what they need.
//
// Thread:  the main thread; asks the system, which need not look at the disk.
// Errors:  as answers: the caller decides what a program is worth without the folder.
#pragma once

#include <filesystem>
#include <optional>

namespace glidemap {

// Shared by all programs; need not exist yet.
std::optional<std::filesystem::path> applicationSupportFolder();

} // namespace glidemap

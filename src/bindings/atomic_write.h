// Replaces the file that a path refers to, atomically (core/whole_file.h).
//
// Thread:  any; blocks during disk access.
// Errors:  the system's error code; the old content stays in place.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

// If the target is a symbolic link, the link stays and the file behind it is replaced. Only the
// owner can read and write the new file.
std::error_code writeAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

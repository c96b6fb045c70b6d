// Atomically replaces the file that a path refers to. See core/whole_file.h.
//
// Thread:  any; blocks during disk access.
// Errors:  returns the system's error code and keeps the old content.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

// If the target is a symbolic link, replaces the file that it points to and keeps the link. Only
// the owner can read and write the new file.
std::error_code writeAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

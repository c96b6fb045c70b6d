// Replaces a file whole: a session that reads it at this moment finds the old content or the new.
//
// Thread:  any; blocks for as long as the disk does.
// Errors:  the system's reason, and the old content is still there.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

// Makes the folders above it, too. A symbolic link to a file keeps pointing: what it points at is
// replaced.
std::error_code replaceFile(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

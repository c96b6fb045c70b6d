// Atomically replaces a file of the session (see core/whole_file.h): a concurrent reader sees
// either the old or the new content.
//
// Thread:  any; blocks on the disk.
// Errors:  returns the system's error; the old content is then unchanged.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

// Creates missing parent folders. If `target` is a symbolic link to a regular file, that file is
// replaced. Otherwise the link itself is replaced, for example a link to /dev/null, which masks an
// autostart entry.
std::error_code replaceFile(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

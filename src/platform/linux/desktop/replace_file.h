// Replaces a file of the session atomically (core/whole_file.h): a concurrent reader sees either
// the old content or the new.
//
// Thread:  any; blocks on the disk.
// Errors:  the system's error; the old content is then unchanged.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

// Also creates missing parent folders. A symbolic link to a file is followed, and its target is
// replaced. Any other symbolic link is replaced itself: a link to /dev/null masks an entry.
std::error_code replaceFile(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

// Replaces a file of the session's, whole (core/whole_file.h): a session that reads it at this
// moment finds the old content or the new.
//
// Thread:  any; blocks for as long as the disk does.
// Errors:  the system's reason, and the old content is still there.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

// Makes the folders above it, too. A symbolic link to a file keeps pointing: what it points at is
// replaced. One to anything else is replaced itself: a link to /dev/null is how an entry is masked.
std::error_code replaceFile(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

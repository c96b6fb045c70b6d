// Replaces the file that a name stands for, whole (core/whole_file.h).
//
// Thread:  any; blocks for as long as the disk does.
// Errors:  the system's reason, and the old content is still there.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

// A target that is a symbolic link keeps pointing: what it points at is replaced. The new file is
// its owner's only, to read and to write.
std::error_code writeAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

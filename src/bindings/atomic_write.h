// Replaces the file that a name stands for, whole (core/whole_file.h).
//
// Thread:  any; blocks for as long as the disk does.
// Errors:  false, and the old content is still there.
#pragma once

#include <filesystem>
#include <string_view>

namespace glidemap {

// A target that is a symbolic link keeps pointing: what it points at is replaced. The new file is
// its owner's only, to read and to write.
bool writeAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

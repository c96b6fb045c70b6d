// A small file that is read whole and replaced whole: whoever reads it, and whenever the program is
// killed, finds the old content or the new one.
//
// Units:   bytes.
// Thread:  any; blocks for as long as the disk does.
// Errors:  an answer without words, since nobody is told them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// A million bindings. A file beyond it is none of ours, and reading it could take all memory.
inline constexpr std::size_t largestBindingFile = 256UL * 1024 * 1024;

// None if it cannot be read, is larger, or is no regular file: opening a pipe or a device would
// wait, or have effects.
std::optional<std::string> readBindingFile(const std::filesystem::path& file);

// Writes a temporary file beside the target, which takes its place once it is safely on the disk.
// A target that is a symbolic link keeps pointing where it points, and what it points at is
// replaced. The file is readable by its owner only.
//
// Timeline: lock the folder – remove what a killed writer left – write – flush – rename – flush the
// folder. Two writers at once do not mix: the second one fails.
//
// False if the old content is still there.
bool replaceBindingFile(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

// Reads a file whole, whatever stands in its place.
//
// Units:   bytes.
// Thread:  any; blocks for as long as the disk does.
// Errors:  no content, and no words, since nobody is told them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace glidemap {

// None if the file cannot be read, is larger, or is no regular file: a pipe or a device would make
// its reader wait, or never end.
std::optional<std::string> readFile(const std::filesystem::path& path, std::size_t mostBytes);

} // namespace glidemap

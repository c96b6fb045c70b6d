// Reads a whole file, and only a regular file.
//
// Units:   bytes.
// Thread:  any; blocks during disk access.
// Errors:  nullopt without a reason, because no caller reports one.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace glidemap {

// Returns nullopt if the file cannot be read, is larger than maxBytes, or is not a regular file: a
// pipe or a device could block its reader, or never end.
std::optional<std::string> readFile(const std::filesystem::path& path, std::size_t maxBytes);

} // namespace glidemap

// Reads a whole regular file.
//
// Units:   bytes.
// Thread:  any; blocks during disk access.
// Errors:  returns nullopt without an error code, because no caller reports the reason.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace glidemap {

// Returns nullopt if the file cannot be read, is larger than maxBytes, or is not a regular file.
// Reading a pipe or a device could block or never end.
std::optional<std::string> readFile(const std::filesystem::path& path, std::size_t maxBytes);

} // namespace glidemap

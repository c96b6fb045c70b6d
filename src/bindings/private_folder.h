// A folder that only its owner can access.
//
// Thread:  any.
// Errors:  silent: reading or writing a file in the folder then also fails. A folder that belongs
//          to another user is not changed.
#pragma once

#include <filesystem>

namespace glidemap {

// Creates the folder, or revokes other users' permissions on an existing one.
void makePrivateFolder(const std::filesystem::path& folder);

} // namespace glidemap

// A folder that only its owner can use.
//
// Thread:  any.
// Errors:  silent: reading or writing a file in the folder fails then, too. A folder that belongs to
//          another user stays as it is.
#pragma once

#include <filesystem>

namespace glidemap {

// Makes the folder, or takes other users' rights to an existing one away.
void makePrivateFolder(const std::filesystem::path& folder);

} // namespace glidemap

// Writes a file whole: whoever reads it, and whenever the writer is killed or the power fails,
// finds the old content or the new one.
//
// Timeline: a temporary file is made beside the target and locked – what a killed writer left is
// removed – it is written and flushed – it is renamed over the target – the folder is flushed.
//
// The temporary file has one name for each target, ".NAME.saving", so that those of killed writers
// do not pile up. Its lock keeps a second writer from removing what the first one still writes, and
// other users cannot open it, so they cannot hold the lock. A folder of that name is removed if it is
// empty; otherwise it stays, and a number follows the name.
//
// Thread:  any; blocks for as long as the disk does, and for at most maxWaitForWriter while another
//          writer is at work.
// Errors:  the system's reason, and the old content is still there. One of them is
//          operation_would_block: another writer was at work for all that time, or is stopped.
#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

inline constexpr std::chrono::seconds maxWaitForWriter{1};

enum class FileAccess {
    ownerOnly, // to read and to write
    ordinary,  // what others may do with the user's other files, they may with this one
};

// Takes the place of whatever has this name, be it a link.
std::error_code writeWhole(const std::filesystem::path& file, std::string_view content,
                           FileAccess access);

} // namespace glidemap

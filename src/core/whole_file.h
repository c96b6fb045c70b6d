// Writes a file whole: whoever reads it, and whenever the writer is killed or the power fails,
// finds the old content or the new one.
//
// Timeline: the folder is locked – what a killed writer left is removed – a temporary file is
// written beside the target and flushed – it is renamed over the target – the folder is flushed.
//
// The temporary file has one name for each target, ".NAME.saving", so that those of killed writers
// do not pile up; the lock keeps a second writer from renaming what the first one still writes.
//
// Thread:  any; blocks for as long as the disk does.
// Errors:  the system's reason, and the old content is still there. One of them is that another
//          writer is at work in the folder: waiting for it could take for ever if that is stopped.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

enum class FileAccess {
    ownerOnly, // to read and to write
    ordinary,  // what others may do with the user's other files, they may with this one
};

// Takes the place of whatever has this name, be it a link.
std::error_code writeWhole(const std::filesystem::path& file, std::string_view content,
                           FileAccess access);

} // namespace glidemap

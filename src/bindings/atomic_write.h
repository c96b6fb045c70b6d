// Replaces a file whole: whoever reads it, and whenever the writer is killed or the power fails,
// finds the old content or the new one.
//
// Timeline: the folder is locked – what a killed writer left is removed – a temporary file is
// written beside the target and flushed – it is renamed over the target – the folder is flushed.
//
// The temporary file has one name for each target, ".NAME.saving", so that those of killed writers
// do not pile up; the lock keeps a second writer from renaming what the first one still writes.
//
// Thread:  any; blocks for as long as the disk does.
// Errors:  false, and the old content is still there. That is also the answer while another writer
//          is at work in the folder: waiting for it could take for ever if that one is stopped.
#pragma once

#include <filesystem>
#include <string_view>

namespace glidemap {

// A target that is a symbolic link keeps pointing: what it points at is replaced. The new file is
// its owner's only, to read and to write.
bool writeAtomically(const std::filesystem::path& target, std::string_view content);

} // namespace glidemap

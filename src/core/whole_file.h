// Writes a file atomically: a reader finds either the old content or the new content, even if the
// writer is killed or the power fails.
//
// Steps: create and lock a temporary file beside the target, removing one that a killed writer
// left; write and flush it; rename it over the target; flush the folder.
//
// Each target has one temporary name, ".NAME.saving", so that temporary files of killed writers do
// not accumulate. The lock keeps a second writer from removing a file that the first one is still
// writing. Other users cannot open the file, so they cannot take the lock. An empty folder of that
// name is removed; if the folder is not empty, it stays and a number is appended to the name.
//
// Thread:  any; blocks during disk access, and for at most maxWaitForWriter while another
//          writer holds the lock.
// Errors:  the system's error code; the old content stays in place. operation_would_block
//          means that another writer held the lock for the whole wait, or is stopped.
#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace glidemap {

inline constexpr std::chrono::seconds maxWaitForWriter{1};

enum class FileAccess {
    ownerOnly, // readable and writable by the owner only
    ordinary,  // permissions that follow the umask, like the user's other files
};

// Replaces the directory entry of this name, even if it is a link.
std::error_code writeWhole(const std::filesystem::path& file, std::string_view content,
                           FileAccess access);

} // namespace glidemap

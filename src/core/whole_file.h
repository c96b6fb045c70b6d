// Writes a file atomically: a reader finds either the old content or the new content, even if the
// writer is killed or the power fails.
//
// Steps: remove the temporary file that a killed writer may have left; create and lock a new one
// beside the target; write the content to the file and flush it; rename the file over the target;
// flush the folder.
//
// Each target has one temporary name, ".NAME.saving", so that temporary files of killed writers do
// not accumulate. The lock prevents a second writer from removing a file that the first one is
// still writing. The file's permissions keep other users from opening it, and thus from taking the
// lock, until its content is complete. An empty folder that has the temporary name is removed. If
// the folder is not empty, a number is appended to the temporary name.
//
// Thread:  any; blocks during disk access, and for at most maxWaitForWriter while another
//          writer holds the lock.
// Errors:  returns the system's error code and keeps the old content. operation_would_block means
//          that another writer, which may be suspended, held the lock for the whole wait.
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

// Replaces a symbolic link itself, not its target.
std::error_code writeWhole(const std::filesystem::path& file, std::string_view content,
                           FileAccess access);

} // namespace glidemap

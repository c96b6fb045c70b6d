#include "core/whole_file.h"

#include "core/open_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cstdio>
#include <string>

namespace glidemap {

namespace {

constexpr mode_t ownersMode = S_IRUSR | S_IWUSR;
constexpr mode_t everyonesMode = ownersMode | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

std::error_code lastError() {
    return {errno, std::generic_category()};
}

// The target's folder, locked against other writers.
class LockedFolder {
public:
    explicit LockedFolder(const std::filesystem::path& path)
        : folder(retried([&] { return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); })),
          failure(folder ? lock() : lastError()) {}
    LockedFolder(const LockedFolder&) = delete;
    LockedFolder& operator=(const LockedFolder&) = delete;
    ~LockedFolder() {
        if (!failure) {
            // Closing alone would not do if another thread is just starting a program, which
            // has the descriptor, too, for a moment.
            flock(descriptor(), LOCK_UN);
        }
    }

    std::error_code error() const { return failure; }
    int descriptor() const { return folder.descriptor(); }

private:
    // Some file systems have no locks. There, that two save at the same moment is only unlikely.
    std::error_code lock() const {
        const bool isTaken =
            retried([this] { return flock(descriptor(), LOCK_EX | LOCK_NB); }) != 0 &&
            errno == EWOULDBLOCK;
        return isTaken ? lastError() : std::error_code();
    }

    OpenFile folder;
    std::error_code failure;
};

bool writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written =
            retried([&] { return write(file, content.data(), content.size()); });
        if (written <= 0) {
            errno = written == 0 ? EIO : errno; // no file does that, but it has a reason then
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::error_code writeNew(int folder, const char* name, std::string_view content,
                         FileAccess access) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const bool isOwners = access == FileAccess::ownerOnly;
    const mode_t mode = isOwners ? ownersMode : everyonesMode; // less what the umask takes away
    const OpenFile file(retried([&] { return openat(folder, name, flags, mode); }));
    const bool isWritten = file && // the owner can read it whatever the umask
                           (!isOwners || fchmod(file.descriptor(), ownersMode) == 0) &&
                           writeAll(file.descriptor(), content) &&
                           retried([&] { return fsync(file.descriptor()); }) == 0;
    return isWritten ? std::error_code() : lastError();
}

std::error_code rename(int folder, const std::string& from, const std::string& to) {
    return renameat(folder, from.c_str(), folder, to.c_str()) == 0 ? std::error_code()
                                                                   : lastError();
}

} // namespace

std::error_code writeWhole(const std::filesystem::path& file, std::string_view content,
                           FileAccess access) {
    const LockedFolder folder(file.has_parent_path() ? file.parent_path() : ".");
    if (folder.error()) {
        return folder.error();
    }
    const std::string name = file.filename().string();
    const std::string temporary = "." + name + ".saving";
    unlinkat(folder.descriptor(), temporary.c_str(), 0);
    std::error_code error = writeNew(folder.descriptor(), temporary.c_str(), content, access);
    if (!error) {
        error = rename(folder.descriptor(), temporary, name);
    }
    if (error) {
        unlinkat(folder.descriptor(), temporary.c_str(), 0);
        return error;
    }
    // The new content is in place, even where a folder cannot be flushed.
    retried([&] { return fsync(folder.descriptor()); });
    return {};
}

} // namespace glidemap

#include "bindings/atomic_write.h"

#include "bindings/open_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cstdio>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

// Where the last of a chain of links points, which need not exist yet. None for a ring of links.
std::optional<std::filesystem::path> resolved(std::filesystem::path file) {
    constexpr int longestChain = 40; // as the kernel's own
    std::error_code error;
    for (int links = 0; links <= longestChain; ++links) {
        if (!std::filesystem::is_symlink(file, error)) {
            return file;
        }
        // A relative link counts from its own folder; an absolute one replaces it.
        file = file.parent_path() / std::filesystem::read_symlink(file, error);
    }
    return std::nullopt;
}

// The target's folder, locked against other writers.
class LockedFolder {
public:
    explicit LockedFolder(const std::filesystem::path& path)
        : folder(retried([&] { return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); })),
          locked(folder && lock()) {}
    LockedFolder(const LockedFolder&) = delete;
    LockedFolder& operator=(const LockedFolder&) = delete;
    ~LockedFolder() {
        if (locked) {
            // Closing alone would not do if another thread is just starting a program, which
            // has the descriptor, too, for a moment.
            flock(descriptor(), LOCK_UN);
        }
    }

    explicit operator bool() const { return locked; }
    int descriptor() const { return folder.descriptor(); }

private:
    // Some file systems have no locks. There, that two save at the same moment is only unlikely.
    bool lock() const {
        return retried([this] { return flock(descriptor(), LOCK_EX | LOCK_NB); }) == 0 ||
               errno != EWOULDBLOCK;
    }

    OpenFile folder;
    bool locked;
};

bool writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written =
            retried([&] { return write(file, content.data(), content.size()); });
        if (written <= 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool writeNew(int folder, const char* name, std::string_view content) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const OpenFile file(retried([&] { return openat(folder, name, flags, ownerOnly); }));
    return file && fchmod(file.descriptor(), ownerOnly) == 0 && // whatever the umask takes away
           writeAll(file.descriptor(), content) &&
           retried([&] { return fsync(file.descriptor()); }) == 0;
}

} // namespace

bool writeAtomically(const std::filesystem::path& target, std::string_view content) {
    const auto file = resolved(target);
    if (!file) {
        return false;
    }
    const LockedFolder folder(file->has_parent_path() ? file->parent_path() : ".");
    if (!folder) {
        return false;
    }
    const std::string name = file->filename().string();
    const std::string temporary = "." + name + ".saving";
    unlinkat(folder.descriptor(), temporary.c_str(), 0);
    if (!writeNew(folder.descriptor(), temporary.c_str(), content) ||
        renameat(folder.descriptor(), temporary.c_str(), folder.descriptor(), name.c_str()) != 0) {
        unlinkat(folder.descriptor(), temporary.c_str(), 0);
        return false;
    }
    // The new content is in place, even where a folder cannot be flushed.
    retried([&] { return fsync(folder.descriptor()); });
    return true;
}

} // namespace glidemap

#include "core/whole_file.h"

#include "core/open_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>

namespace glidemap {

namespace {

constexpr mode_t ownersMode = S_IRUSR | S_IWUSR;
constexpr mode_t everyonesMode = ownersMode | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

std::error_code lastError() {
    return {errno, std::generic_category()};
}

// The interval between attempts to take a lock that another writer holds.
constexpr timespec lockInterval{.tv_sec = 0, .tv_nsec = 5'000'000};

// Returns a name that a file can take. Removes an empty folder that has the name. If a folder with
// the name cannot be removed, adds a number to the name.
std::string availableFileName(int folder, const std::string& name) {
    constexpr int maxNumber = 9;
    std::string candidate = name;
    for (int number = 2; number <= maxNumber; ++number) {
        struct stat status {};
        const bool isFolder =
            fstatat(folder, candidate.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISDIR(status.st_mode);
        if (!isFolder || unlinkat(folder, candidate.c_str(), AT_REMOVEDIR) == 0) {
            break;
        }
        candidate = name + "." + std::to_string(number);
    }
    return candidate;
}

bool writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written =
            retried([&] { return write(file, content.data(), content.size()); });
        if (written <= 0) {
            // write() never returns zero for a regular file, but the error must have a code.
            errno = written == 0 ? EIO : errno;
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// The temporary file that replaces the target. A lock on it excludes other writers. The folder is
// not locked, because every user who can read it could take that lock. Other users cannot open the
// temporary file until its content is complete.
class TemporaryFile {
public:
    TemporaryFile(int folderDescriptor, const std::string& target, FileAccess targetAccess)
        : folder(folderDescriptor), access(targetAccess),
          name(availableFileName(folder, "." + target + ".saving")), _error(acquire()) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (_error) {
            return;
        }
        if (!isInPlace) {
            unlinkat(folder, name.c_str(), 0);
        }
        // close() alone might not release the lock: a child that another thread has just forked
        // briefly shares the descriptor.
        flock(file.descriptor(), LOCK_UN);
    }

    // Returns the error that prevented creating or locking the file.
    std::error_code error() const { return _error; }

    std::error_code write(std::string_view content) const {
        const bool isWritten = writeAll(file.descriptor(), content) && setFinalMode() &&
                               retried([this] { return fsync(file.descriptor()); }) == 0;
        return isWritten ? std::error_code() : lastError();
    }

    std::error_code moveTo(const std::string& target) {
        isInPlace = renameat(folder, name.c_str(), folder, target.c_str()) == 0;
        return isInPlace ? std::error_code() : lastError();
    }

private:
    enum class Attempt { done, busy, failed };

    std::error_code acquire();
    Attempt attempt();
    Attempt make();
    Attempt removeLeftover();
    bool setFinalMode() const;

    bool lock() const {
        // Some file systems do not support locks. Continue without a lock, because simultaneous
        // saves are unlikely.
        return flock(file.descriptor(), LOCK_EX | LOCK_NB) == 0 ||
               (errno != EWOULDBLOCK && errno != EINTR);
    }
    bool isCurrent() const;
    bool isOpenToOthers() const;

    const int folder;
    const FileAccess access;
    const std::string name;
    OpenFile file;
    mode_t finalMode = ownersMode;
    bool isInPlace = false;
    const std::error_code _error;
};

std::error_code TemporaryFile::acquire() {
    const auto deadline = std::chrono::steady_clock::now() + maxWaitForWriter;
    while (true) {
        const Attempt result = attempt();
        if (result != Attempt::busy) {
            return result == Attempt::done ? std::error_code() : lastError();
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            break;
        }
        nanosleep(&lockInterval, nullptr);
    }
    // If other users can open the file, one of them could hold the lock forever. Replace the file
    // in that case.
    const bool isRemoved = file && isOpenToOthers() && unlinkat(folder, name.c_str(), 0) == 0;
    return isRemoved && make() == Attempt::done
               ? std::error_code()
               : std::make_error_code(std::errc::operation_would_block);
}

TemporaryFile::Attempt TemporaryFile::attempt() {
    const Attempt made = make();
    return made == Attempt::failed && errno == EEXIST ? removeLeftover() : made;
}

TemporaryFile::Attempt TemporaryFile::make() {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const mode_t mode = access == FileAccess::ownerOnly ? ownersMode : everyonesMode;
    file = OpenFile(retried([&] { return openat(folder, name.c_str(), flags, mode); }));
    struct stat status {};
    if (!file || fstat(file.descriptor(), &status) != 0) {
        return Attempt::failed;
    }
    if (access == FileAccess::ordinary) {
        finalMode = status.st_mode & everyonesMode; // without the bits that the umask clears
    }
    // Ignore failures: some file systems use one mode for all files.
    fchmod(file.descriptor(), ownersMode);
    return lock() && isCurrent() ? Attempt::done : Attempt::busy;
}

// Handles an existing temporary file. It belongs to another writer, or a killed writer left it
// behind without a lock.
TemporaryFile::Attempt TemporaryFile::removeLeftover() {
    // Without O_NONBLOCK, opening a pipe would block until its other end is open.
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    file = OpenFile(retried([&] { return openat(folder, name.c_str(), flags); }));
    if (!file && errno == ENOENT) {
        return Attempt::busy;
    }
    const bool isAnothers = file && (!lock() || !isCurrent());
    if (isAnothers) {
        return Attempt::busy;
    }
    return unlinkat(folder, name.c_str(), 0) == 0 ? make() : Attempt::failed;
}

bool TemporaryFile::setFinalMode() const {
    const bool isSet = fchmod(file.descriptor(), finalMode) == 0;
    return isSet || access == FileAccess::ordinary;
}

// Returns whether the locked file still has its name. Another writer may have renamed or removed
// the file before this writer locked it, and then the lock excludes no other writer.
bool TemporaryFile::isCurrent() const {
    struct stat locked {};
    struct stat named {};
    return fstat(file.descriptor(), &locked) == 0 &&
           fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           locked.st_dev == named.st_dev && locked.st_ino == named.st_ino;
}

bool TemporaryFile::isOpenToOthers() const {
    struct stat status {};
    return fstat(file.descriptor(), &status) == 0 &&
           (status.st_uid != geteuid() || (status.st_mode & everyonesMode & ~ownersMode) != 0);
}

} // namespace

std::error_code writeWhole(const std::filesystem::path& file, std::string_view content,
                           FileAccess access) {
    const std::filesystem::path path = file.has_parent_path() ? file.parent_path() : ".";
    const OpenFile folder(
        retried([&] { return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder) {
        return lastError();
    }
    const std::string name = file.filename().string();
    TemporaryFile temporary(folder.descriptor(), name, access);
    std::error_code error = temporary.error();
    if (!error) {
        error = temporary.write(content);
    }
    if (!error) {
        error = temporary.moveTo(name);
    }
    if (!error) {
        // The new content is in place even if flushing the folder fails.
        retried([&] { return fsync(folder.descriptor()); });
    }
    return error;
}

} // namespace glidemap

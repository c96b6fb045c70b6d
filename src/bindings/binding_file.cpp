#include "bindings/binding_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

template <typename Call>
auto retried(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

class OpenFile {
public:
    explicit OpenFile(int opened) : file(opened) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (file != -1) {
            close(file);
        }
    }

    explicit operator bool() const { return file != -1; }
    int descriptor() const { return file; }

private:
    int file;
};

bool isRegular(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

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

// Where the last of a chain of links points, which need not exist yet. None for a ring of links.
std::optional<std::filesystem::path> resolved(std::filesystem::path file) {
    constexpr int longestChain = 40; // as the kernel's own
    std::error_code error;
    for (int links = 0; links < longestChain; ++links) {
        if (!std::filesystem::is_symlink(file, error)) {
            return file;
        }
        // A relative link counts from its own folder; an absolute one replaces it.
        file = file.parent_path() / std::filesystem::read_symlink(file, error);
    }
    return std::nullopt;
}

// False if another writer is at work in the folder. Not every file system has locks; without them
// there is only the hope that nobody saves at the same moment.
bool lock(int folder) {
    return retried([&] { return flock(folder, LOCK_EX | LOCK_NB); }) == 0 || errno != EWOULDBLOCK;
}

bool writeNew(int folder, const char* name, std::string_view content) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const OpenFile file(retried([&] { return openat(folder, name, flags, ownerOnly); }));
    return file && fchmod(file.descriptor(), ownerOnly) == 0 &&
           writeAll(file.descriptor(), content) &&
           retried([&] { return fsync(file.descriptor()); }) == 0;
}

} // namespace

std::optional<std::string> readBindingFile(const std::filesystem::path& path) {
    // O_NONBLOCK: opening a pipe would wait for its writer.
    const OpenFile file(
        retried([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
    if (!file || !isRegular(file.descriptor())) {
        return std::nullopt;
    }
    constexpr std::size_t chunk = 64UL * 1024;
    std::string content;
    for (;;) {
        const std::size_t before = content.size();
        content.resize(before + chunk);
        const ssize_t count =
            retried([&] { return read(file.descriptor(), content.data() + before, chunk); });
        if (count < 0) {
            return std::nullopt;
        }
        content.resize(before + static_cast<std::size_t>(count));
        if (count == 0) {
            return content;
        }
        if (content.size() > largestBindingFile) {
            return std::nullopt;
        }
    }
}

bool replaceBindingFile(const std::filesystem::path& target, std::string_view content) {
    const auto file = resolved(target);
    if (!file || !file->has_filename()) {
        return false;
    }
    const auto folderPath = file->has_parent_path() ? file->parent_path() : ".";
    const OpenFile folder(
        retried([&] { return open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder || !lock(folder.descriptor())) {
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
    // The new content is in place already; some file systems cannot flush a folder.
    retried([&] { return fsync(folder.descriptor()); });
    return true;
}

} // namespace glidemap

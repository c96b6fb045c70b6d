#include "bindings/read_file.h"

#include "core/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace glidemap {

namespace {

bool isRegular(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

std::optional<std::string> readFile(const std::filesystem::path& path, std::size_t maxBytes) {
    // Without O_NONBLOCK, opening a pipe would block until a process opens it for writing.
    const OpenFile file(
        retried([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    if (!file || !isRegular(file.descriptor())) {
        return std::nullopt;
    }
    constexpr std::size_t chunk = 64UL * 1024;
    std::string content;
    while (content.size() <= maxBytes) {
        const std::size_t before = content.size();
        content.resize(before + chunk);
        const ssize_t count =
            retried([&] { return read(file.descriptor(), content.data() + before, chunk); });
        if (count == -1) {
            return std::nullopt;
        }
        content.resize(before + static_cast<std::size_t>(count));
        if (count == 0) {
            return content;
        }
    }
    return std::nullopt;
}

} // namespace glidemap

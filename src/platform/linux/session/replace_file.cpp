#include "platform/linux/session/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

namespace glidemap {

namespace {

std::error_code lastError() {
    return {errno, std::generic_category()};
}

std::filesystem::path behindLinks(const std::filesystem::path& target) {
    std::error_code error;
    auto file = std::filesystem::canonical(target, error);
    return !error && std::filesystem::is_regular_file(file, error) ? file : target;
}

// What others may do with the user's other files, they may with this one.
mode_t ordinaryMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

std::error_code write(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written == -1 && errno != EINTR) {
            return lastError();
        }
        content.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return fchmod(file, ordinaryMode()) == 0 && fsync(file) == 0 ? std::error_code() : lastError();
}

void flushFolder(const std::filesystem::path& folder) {
    const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file != -1) {
        fsync(file);
        close(file);
    }
}

} // namespace

std::error_code replaceFile(const std::filesystem::path& target, std::string_view content) {
    const auto file = behindLinks(target);
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (error) {
        return error;
    }
    std::string temporary = file.parent_path() / ("." + file.filename().string() + ".XXXXXX");
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor == -1) {
        return lastError();
    }
    error = write(descriptor, content);
    if (close(descriptor) == -1 && !error) {
        error = lastError();
    }
    if (!error) {
        std::filesystem::rename(temporary, file, error);
    }
    if (error) {
        unlink(temporary.c_str());
        return error;
    }
    flushFolder(file.parent_path());
    return {};
}

} // namespace glidemap

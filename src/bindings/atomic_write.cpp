#include "bindings/atomic_write.h"

#include "core/whole_file.h"

#include <optional>
#include <system_error>

namespace glidemap {

namespace {

// Follows symbolic links and returns the final path, which need not exist. Returns nullopt if there
// are too many links, as in a cycle.
std::optional<std::filesystem::path> followLinks(std::filesystem::path file) {
    constexpr int maxLinks = 40; // the kernel's limit
    std::error_code error;
    for (int links = 0; links <= maxLinks; ++links) {
        if (!std::filesystem::is_symlink(file, error)) {
            return file;
        }
        // A relative link is relative to the folder that contains it; an absolute link replaces the
        // path.
        file = file.parent_path() / std::filesystem::read_symlink(file, error);
    }
    return std::nullopt;
}

// Returns whether the file is a device. A device must not be replaced with a regular file, because
// a user may link the bindings file to /dev/null to store nothing.
bool isDevice(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::is_character_file(file, error) ||
           std::filesystem::is_block_file(file, error);
}

} // namespace

std::error_code writeAtomically(const std::filesystem::path& target, std::string_view content) {
    const auto file = followLinks(target);
    if (!file) {
        return std::make_error_code(std::errc::too_many_symbolic_link_levels);
    }
    return isDevice(*file) ? std::make_error_code(std::errc::operation_not_supported)
                           : writeWhole(*file, content, FileAccess::ownerOnly);
}

} // namespace glidemap

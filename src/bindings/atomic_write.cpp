#include "bindings/atomic_write.h"

#include "core/whole_file.h"

#include <optional>
#include <system_error>

namespace glidemap {

namespace {

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

// Whoever links to /dev/null wants nothing kept, and not another file in its place.
bool isDevice(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::is_character_file(file, error) ||
           std::filesystem::is_block_file(file, error);
}

} // namespace

std::error_code writeAtomically(const std::filesystem::path& target, std::string_view content) {
    const auto file = resolved(target);
    if (!file) {
        return std::make_error_code(std::errc::too_many_symbolic_link_levels);
    }
    return isDevice(*file) ? std::make_error_code(std::errc::operation_not_supported)
                           : writeWhole(*file, content, FileAccess::ownerOnly);
}

} // namespace glidemap

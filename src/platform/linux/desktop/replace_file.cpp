#include "platform/linux/desktop/replace_file.h"

#include "core/whole_file.h"

namespace glidemap {

namespace {

std::filesystem::path behindLinks(const std::filesystem::path& target) {
    std::error_code error;
    auto file = std::filesystem::canonical(target, error);
    return !error && std::filesystem::is_regular_file(file, error) ? file : target;
}

} // namespace

std::error_code replaceFile(const std::filesystem::path& target, std::string_view content) {
    const auto file = behindLinks(target);
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    return error ? error : writeWhole(file, content, FileAccess::ordinary);
}

} // namespace glidemap

#include "support_folder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace glidemap {

SupportFolder::SupportFolder(const std::filesystem::path& place) {
    const auto around = place.empty() ? std::filesystem::temp_directory_path() : place;
    std::string pattern = (around / "glidemap-bindings-XXXXXX").string();
    support = mkdtemp(pattern.data());
}

SupportFolder::~SupportFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(support, ignored);
}

BindingStore::SupportFolder SupportFolder::asked() const {
    return [answer = support] {
        return answer;
    };
}

void SupportFolder::write(std::string_view content) const {
    std::filesystem::create_directories(folder());
    writeContent(file(), content);
}

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void writeContent(const std::filesystem::path& file, std::string_view content) {
    std::ofstream(file, std::ios::binary).write(content.data(), std::ssize(content));
}

std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace glidemap

#include "support_folder.h"

#include <algorithm>
#include <fstream>

namespace glidemap {

BindingStore::SupportFolder SupportFolder::asked() const {
    return [answer = path()] {
        return answer;
    };
}

void SupportFolder::write(std::string_view content) const {
    std::filesystem::create_directories(folder());
    writeContent(file(), content);
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

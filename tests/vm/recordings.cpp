#include "recordings.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <cctype>

namespace glidemap::test {

std::filesystem::path recordingsFolder() {
    return GLIDEMAP_RECORDINGS_DIR;
}

std::set<std::string> recordingsEndingIn(const std::string& ending) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(recordingsFolder())) {
        if (entry.path().extension() == ending) {
            names.insert(entry.path().lexically_relative(recordingsFolder()).string());
        }
    }
    return names;
}

PadShape shapeToday(const RecordedPad& recorded) {
    PadShape shape = recorded.shape;
    if (!shape.properties.contains(INPUT_PROP_DIRECT)) {
        shape.properties.insert(INPUT_PROP_POINTER);
    }
    return shape;
}

std::string testName(const std::filesystem::path& file) {
    std::string name = file.stem().string();
    std::ranges::replace_if(
        name,
        [](char character) { return std::isalnum(static_cast<unsigned char>(character)) == 0; },
        '_');
    return name;
}

} // namespace glidemap::test

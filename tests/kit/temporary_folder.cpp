#include "kit/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace glidemap::test {

TemporaryFolder::TemporaryFolder(const std::filesystem::path& place) {
    const auto around = place.empty() ? std::filesystem::temp_directory_path() : place;
    std::string name = (around / "glidemap-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr) << name;
    folder = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::filesystem::path TemporaryFolder::write(const std::filesystem::path& name,
                                             std::string_view content) const {
    const auto file = folder / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    stream.close();
    EXPECT_FALSE(stream.fail()) << file;
    return file;
}

std::filesystem::path TemporaryFolder::writeProgram(const std::filesystem::path& name) const {
    const auto file = write(name, "#!/bin/sh\n");
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
}

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace glidemap::test

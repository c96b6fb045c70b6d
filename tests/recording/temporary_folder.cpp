#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace glidemap::test {

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "glidemap-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::filesystem::path TemporaryFolder::write(const std::string& name,
                                             const std::string& content) const {
    const auto path = folder / name;
    std::ofstream stream(path, std::ios::binary);
    stream << content;
    stream.close();
    EXPECT_FALSE(stream.fail());
    return path;
}

} // namespace glidemap::test

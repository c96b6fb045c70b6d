#include "linux_session/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace glidemap::test {

TemporaryFolder::TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "glidemap-XXXXXX";
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(folder, error);
}

std::filesystem::path TemporaryFolder::write(const std::filesystem::path& name,
                                             const std::string& content) const {
    const auto file = folder / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
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

InEnvironment::InEnvironment(const char* variable, const char* value)
    : name(variable), wasSet(std::getenv(variable) != nullptr) {
    if (wasSet) {
        before = std::getenv(variable);
    }
    value != nullptr ? setenv(name, value, 1) : unsetenv(name);
}

InEnvironment::~InEnvironment() {
    wasSet ? setenv(name, before.c_str(), 1) : unsetenv(name);
}

} // namespace glidemap::test

// A folder of its own for a test that needs files beside each other. Gone when the test ends.
#pragma once

#include <filesystem>
#include <string>

namespace glidemap::test {

class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    std::filesystem::path write(const std::string& name, const std::string& content) const;

private:
    std::filesystem::path folder;
};

} // namespace glidemap::test

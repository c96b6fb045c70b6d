// A temporary folder for a test, removed with its content when the test ends.
//
// Thread:  one.
// Owner:   a test or a fixture.
// Errors:  failing to create the folder or a file fails the test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace glidemap::test {

class TemporaryFolder {
public:
    // By default, the folder is created where the system keeps temporary files.
    explicit TemporaryFolder(const std::filesystem::path& place = {});
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return folder; }

    // Creates missing parent folders as well, and returns the file's path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const;
    std::filesystem::path writeProgram(const std::filesystem::path& name) const;

private:
    std::filesystem::path folder;
};

// Returns an empty string if the file does not exist.
std::string contentOf(const std::filesystem::path& file);

} // namespace glidemap::test

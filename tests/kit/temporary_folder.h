// A folder of its own for a test. Gone, with all that is in it, when the test ends.
//
// Thread:  one.
// Owner:   a test, or what a test owns.
// Errors:  a folder or a file that cannot be made is a failure of the test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace glidemap::test {

class TemporaryFolder {
public:
    // In the folder for temporary files, unless told otherwise.
    explicit TemporaryFolder(const std::filesystem::path& place = {});
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return folder; }

    // Makes the folders above it, too, and answers the file's path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const;
    std::filesystem::path writeProgram(const std::filesystem::path& name) const;

private:
    std::filesystem::path folder;
};

// Nothing if there is no such file.
std::string contentOf(const std::filesystem::path& file);

} // namespace glidemap::test

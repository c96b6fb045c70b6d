// A folder of its own for a test. Gone, with what is in it, when the test ends.
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

    const std::filesystem::path& path() const { return folder; }

    // Makes the folders above it, too.
    std::filesystem::path write(const std::filesystem::path& name,
                                const std::string& content) const;
    std::filesystem::path writeProgram(const std::filesystem::path& name) const;

private:
    std::filesystem::path folder;
};

std::string contentOf(const std::filesystem::path& file);

// A variable of the environment, for as long as a scope lasts. Null takes it away.
class InEnvironment {
public:
    InEnvironment(const char* variable, const char* value);
    InEnvironment(const InEnvironment&) = delete;
    InEnvironment& operator=(const InEnvironment&) = delete;
    ~InEnvironment();

private:
    const char* name;
    bool wasSet;
    std::string before;
};

} // namespace glidemap::test

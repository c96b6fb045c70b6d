// Folders of desktop entries, the only ones that GIO sees while a test runs.
//
// GIO keeps the folders that it found first for the life of the process, so all tests of a program
// share them, and each begins with empty ones.
//
// Thread:  the test's.
// Owner:   the test program.
// Errors:  a file that cannot be written is a failure of the test.
#pragma once

#include "kit/temporary_folder.h"

#include <filesystem>
#include <string>

namespace glidemap {

class ApplicationFolder {
public:
    // The program's one and only; made before its first use of GIO.
    static ApplicationFolder& instance();

    ApplicationFolder(const ApplicationFolder&) = delete;
    ApplicationFolder& operator=(const ApplicationFolder&) = delete;

    void clear() const;

    // In the user's own folder, or in the system's, which the user's hides.
    std::filesystem::path install(const std::string& identifier, const std::string& keys) const;
    std::filesystem::path installForAll(const std::string& identifier,
                                        const std::string& keys) const;
    void remove(const std::string& identifier) const;

    // A shell script to be launched.
    std::filesystem::path script(const std::string& name, const std::string& content) const;

    const std::filesystem::path& path() const { return root; }

private:
    ApplicationFolder();

    test::TemporaryFolder folder;
    const std::filesystem::path root = folder.path();
};

} // namespace glidemap

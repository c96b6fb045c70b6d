// Provides the folders from which GIO reads desktop entries during a test.
//
// GIO reads the names of the folders once per process. So all tests of a test program share the
// folders, and each test empties them first.
//
// Thread:  the test's.
// Owner:   the test program.
// Errors:  a file that cannot be written fails the test.
#pragma once

#include "kit/temporary_folder.h"

#include <filesystem>
#include <string>

namespace glidemap {

class ApplicationFolder {
public:
    // The only instance; create it before the first use of GIO.
    static ApplicationFolder& instance();

    ApplicationFolder(const ApplicationFolder&) = delete;
    ApplicationFolder& operator=(const ApplicationFolder&) = delete;

    void clear() const;

    // install() writes an entry to the user's folder, installForAll() to the system's folder.
    // Entries in the user's folder take precedence.
    std::filesystem::path install(const std::string& identifier, const std::string& keys) const;
    std::filesystem::path installForAll(const std::string& identifier,
                                        const std::string& keys) const;
    void remove(const std::string& identifier) const;

    // Creates an executable shell script.
    std::filesystem::path script(const std::string& name, const std::string& content) const;

    const std::filesystem::path& path() const { return root; }

private:
    ApplicationFolder();

    test::TemporaryFolder folder;
    const std::filesystem::path root = folder.path();
};

} // namespace glidemap

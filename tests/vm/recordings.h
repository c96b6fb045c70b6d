// Real touchpads' recordings, which are not part of the project: a folder that the build is told
// about.
#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace glidemap::vm {

// Paths in the tests' tables are relative to this folder.
std::filesystem::path recordingsFolder();

// Every file of the folder with the ending (".events"), relative to it.
std::set<std::string> recordingsEndingIn(const std::string& ending);

// The file's name in the letters that a test's name may have.
std::string testName(const std::filesystem::path& file);

} // namespace glidemap::vm

// Ends the test where there is no such folder.
#define GLIDEMAP_NEEDS_RECORDINGS()                                                                \
    do {                                                                                           \
        if (!std::filesystem::is_directory(::glidemap::vm::recordingsFolder())) {                  \
            GTEST_SKIP() << "no recordings in " << ::glidemap::vm::recordingsFolder()              \
                         << " (GLIDEMAP_RECORDINGS_DIR)";                                          \
        }                                                                                          \
    } while (false)

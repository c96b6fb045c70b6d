// Real touchpads' recordings, which are not part of the project: a folder that the build is told
// about.
#pragma once

#include "recorded_pad.h"

#include <filesystem>
#include <set>
#include <string>

namespace glidemap::vm {

// Paths in the tests' tables are relative to this folder.
std::filesystem::path recordingsFolder();

// Every file of the folder with the ending (".events"), relative to it.
std::set<std::string> recordingsEndingIn(const std::string& ending);

// The pad of a recording as a kernel of today presents it.
//
// Many of the recordings are older than the property by which a pad says that it moves a pointer;
// the drivers of all their makers have set it since. Only touch screens lack it, which have the
// opposite one.
PadShape shapeToday(const RecordedPad& recorded);

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

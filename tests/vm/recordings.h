// Recordings of real touchpads. They are not part of the project: the build configures their
// folder.
#pragma once

#include "recorded_pad.h"

#include <filesystem>
#include <set>
#include <string>

namespace glidemap::test {

// The tests' tables contain paths relative to this folder.
std::filesystem::path recordingsFolder();

// Returns every file with the extension `ending`, such as ".events", in the folder and its
// subfolders. The paths are relative to the folder.
std::set<std::string> recordingsEndingIn(const std::string& ending);

// Describes the recording's touchpad as a current kernel does.
//
// Many of the recordings are older than INPUT_PROP_POINTER, which the drivers of all these
// touchpads set today. Only touchscreens do not have it; they have INPUT_PROP_DIRECT instead.
PadShape shapeToday(const RecordedPad& recorded);

// Returns the file's name without its extension, in characters that a test's name may contain.
std::string testName(const std::filesystem::path& file);

} // namespace glidemap::test

// Skips the test if the folder does not exist.
#define GLIDEMAP_NEEDS_RECORDINGS()                                                                \
    do {                                                                                           \
        if (!std::filesystem::is_directory(::glidemap::test::recordingsFolder())) {                \
            GTEST_SKIP() << "no recordings in " << ::glidemap::test::recordingsFolder()            \
                         << " (GLIDEMAP_RECORDINGS_DIR)";                                          \
        }                                                                                          \
    } while (false)

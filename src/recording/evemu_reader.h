// Reads an evemu recording of a touchpad: the description at its start or in a separate file, then
// its events as they arrive.
//
// Owner:   openRecording(), which creates it.
#pragma once

#include "recording/line_reader.h"
#include "recording/recording_reader.h"

#include <filesystem>
#include <memory>

namespace glidemap {

// `path` is the recording's file, or empty. A recording without a description uses a `.desc` file
// in the same folder: the one whose name is the longest prefix of the recording's name. Both names
// are compared without their last extension.
std::unique_ptr<RecordingReader> readEvemu(LineReader lines, const std::filesystem::path& path);

} // namespace glidemap

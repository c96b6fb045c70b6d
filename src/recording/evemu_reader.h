// Reads an evemu recording of a touchpad: the description at its head, or beside it, then its
// events as they arrive.
//
// Owner:   openRecording, which makes it.
#pragma once

#include "recording/line_reader.h"
#include "recording/recording_reader.h"

#include <filesystem>
#include <memory>

namespace glidemap {

// `path` is the recording's file, or empty. The description of a recording without one is the
// `.desc` file in the same folder whose name is the longest beginning of the recording's own (both
// without their last ending).
std::unique_ptr<RecordingReader> readEvemu(LineReader lines, const std::filesystem::path& path);

} // namespace glidemap

// One reader for each recording format.
//
// Owner:   openRecording(), which creates them.
#pragma once

#include "recording/line_reader.h"
#include "recording/recording_reader.h"

#include <filesystem>
#include <memory>

namespace glidemap {

// json_lines_reader.cpp: our own recording format, JSON Lines, as it arrives.
std::unique_ptr<RecordingReader> readJsonLines(LineReader lines);

// evemu_reader.cpp: an evemu recording of a touchpad: the description at its start or in a separate
// file, then its events as they arrive. `path` is the recording's file, or empty. A recording
// without a description uses a `.desc` file in the same folder: the one whose name is the longest
// prefix of the recording's name. Both names are compared without their last extension.
std::unique_ptr<RecordingReader> readEvemu(LineReader lines, const std::filesystem::path& path);

// libinput_record_reader.cpp: the YAML of `libinput record`: the first touchpad in the file. Reads
// the whole file before it returns.
std::unique_ptr<RecordingReader> readLibinputRecord(LineReader lines);

} // namespace glidemap

// One reader for each recording format.
//
// Owner:   openRecording(), which creates them.
#pragma once

#include "recording/line_reader.h"
#include "recording/recording_reader.h"

#include <filesystem>
#include <memory>

namespace glidemap {

// json_lines_reader.cpp: our own recording format, JSON Lines. Reads lines as they arrive.
std::unique_ptr<RecordingReader> readJsonLines(LineReader lines);

// evemu_reader.cpp: an evemu recording of a touchpad. Reads the description of the device from the
// start of the recording or from a separate file, then the events as they arrive. `path` is the
// recording's file, or empty. If the recording has no description, uses a `.desc` file in the same
// folder: the file whose name is the longest prefix of the recording's name. Names are compared
// without their last extension.
std::unique_ptr<RecordingReader> readEvemu(LineReader lines, const std::filesystem::path& path);

// libinput_record_reader.cpp: the first touchpad in the YAML of `libinput record`. Reads the whole
// file before it returns.
std::unique_ptr<RecordingReader> readLibinputRecord(LineReader lines);

} // namespace glidemap

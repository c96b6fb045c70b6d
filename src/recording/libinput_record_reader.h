// Reads the YAML of `libinput record`: the first touchpad in the file.
//
// Owner:   openRecording, which makes it.
#pragma once

#include "recording/line_reader.h"
#include "recording/recording_reader.h"

#include <memory>

namespace glidemap {

// The file is read whole before this returns.
std::unique_ptr<RecordingReader> readLibinputRecord(LineReader lines);

} // namespace glidemap

// Reads the YAML of `libinput record`: the first touchpad in the file.
//
// Owner:   openRecording(), which creates it.
#pragma once

#include "recording/line_reader.h"
#include "recording/recording_reader.h"

#include <memory>

namespace glidemap {

// Reads the whole file before it returns.
std::unique_ptr<RecordingReader> readLibinputRecord(LineReader lines);

} // namespace glidemap

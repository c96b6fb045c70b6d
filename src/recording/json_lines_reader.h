// Reads our own recording format, JSON Lines, as it arrives.
//
// Owner:   openRecording(), which creates it.
#pragma once

#include "recording/line_reader.h"
#include "recording/recording_reader.h"

#include <memory>

namespace glidemap {

std::unique_ptr<RecordingReader> readJsonLines(LineReader lines);

} // namespace glidemap

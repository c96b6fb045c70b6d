// Checks the rules that every reader must keep for any input. Ends the program if one is broken.
//
//   - times and positions are finite, and a report has a bounded number of contacts;
//   - after the end, reading returns nothing more, and an error does not change;
//   - the records, written in the project's format, read back unchanged.
#pragma once

#include "recording/recording_reader.h"

namespace glidemap::fuzz {

void readAndCheck(RecordingReader& reader);

} // namespace glidemap::fuzz

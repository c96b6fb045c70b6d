// Checks the rules that every reader must follow for any input. Aborts the program if a rule is
// violated.
//
//   - times and positions are finite, and the number of contacts in a report is limited;
//   - after the end, reading returns no more records, and an error does not change;
//   - the records are unchanged after writing them in the project's format and reading them back.
#pragma once

#include "recording/recording_reader.h"

namespace glidemap::fuzz {

void readAndCheck(RecordingReader& reader);

} // namespace glidemap::fuzz

// What holds of every reader, whatever it reads. Ends the program where it does not.
//
//   - times and positions are finite, and there are no more contacts than a report may have;
//   - the end is the end: reading on gives nothing more, and an error stays what it is;
//   - what was read, written in our own format, reads back as it was.
#pragma once

#include "recording/recording_reader.h"

namespace glidemap::fuzz {

void readAndCheck(RecordingReader& reader);

} // namespace glidemap::fuzz

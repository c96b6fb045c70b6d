// Writes a recording as JSON Lines, one record a line (docs/recording-format.md).
//
// Units:   times rounded to microseconds; positions in as few digits as give the same float back.
// Thread:  one at a time; holds no lock.
// Owner:   the caller, as is the stream.
// Errors:  those of the stream, which the caller asks. What the format cannot say is left out: a
// record whose time, and
//          a contact whose position, is no finite number.
#pragma once

#include "recording/record.h"

#include <ostream>
#include <string>

namespace glidemap {

class RecordingWriter {
public:
    explicit RecordingWriter(std::ostream& output) : stream(output) {}

    // The optional first line, which says what the recording was made on.
    void writeHead(const std::string& device);

    void write(const Record& record);

private:
    void writeRest(const Report& report);
    void writeRest(const ButtonRecord& record);
    void writeRest(const FrontmostRecord& record);
    void writeRest(const TimeRecord& record);

    std::ostream& stream;
};

} // namespace glidemap

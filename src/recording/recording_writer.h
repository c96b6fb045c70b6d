// Writes a recording as JSON Lines, one record per line (docs/recording-format.md).
//
// Units:   times rounded to microseconds; positions with the fewest digits that read back as the
//          same float.
// Thread:  one at a time; takes no lock.
// Owner:   the caller, who also owns the stream.
// Errors:  the caller checks the stream. The writer skips a record whose time is not finite, and a
//          contact whose position is not finite.
#pragma once

#include "recording/record.h"

#include <ostream>
#include <string>

namespace glidemap {

class RecordingWriter {
public:
    explicit RecordingWriter(std::ostream& output) : stream(output) {}

    // Writes the optional first line, which names the recording's device.
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

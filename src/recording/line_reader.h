// Splits a stream into numbered lines, with a look ahead by which the kind of a recording is
// recognised.
//
// Thread:  one; holds no lock.
// Owner:   the recording's reader. Borrows the stream.
// Errors:  kept as a value in error(): a stream that cannot be read, a line that is longer than any
// recording has.
#pragma once

#include "recording/recording_reader.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// All contacts that a report may have fit many times over. A longer line is no recording, and would
// fill the memory.
inline constexpr std::size_t longestLine = 16U << 20U;

class LineReader {
public:
    LineReader(std::istream& input, std::string name)
        : stream(&input), _name(std::move(name)), buffer(firstBufferSize) {}

    // The next line without its end, LF or CRLF. Valid until the next call.
    std::optional<std::string_view> next();

    // The line that `lines` further calls of next() will give, without taking it.
    std::optional<std::string_view> lookAhead(std::size_t lines);

    // Of the line that next() gave last, from 1.
    std::int64_t number() const { return _number; }

    RecordingError errorHere(std::string message) const { return {_name, _number, message}; }
    const std::string& name() const { return _name; }
    const std::optional<RecordingError>& error() const { return _error; }

private:
    std::optional<std::string_view> read();
    bool makeRoom();
    std::string_view trimmed(std::size_t length);

    static constexpr std::size_t firstBufferSize = 4096;

    std::istream* stream;
    std::string _name;
    std::vector<char> buffer;
    std::deque<std::string> ahead;
    std::string taken; // the line of the look ahead that was given last
    std::int64_t _number = 0;
    bool atStart = true;
    std::optional<RecordingError> _error;
};

// Whether a line has nothing but blanks.
bool isBlank(std::string_view line);

} // namespace glidemap

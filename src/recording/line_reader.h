// Splits a stream into numbered lines, with a look-ahead to detect the format of a recording.
// LineBuffer converts the lines back into a stream.
//
// Thread:  one; takes no lock.
// Owner:   the recording's reader. Borrows the stream.
// Errors:  stored in error(): the stream cannot be read, or a line exceeds maxLineLength.
#pragma once

#include "recording/recording_reader.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <istream>
#include <optional>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace glidemap {

// Far longer than any report. A file with a longer line is not a recording and could exhaust the
// memory.
inline constexpr std::size_t maxLineLength = 16U << 20U;

class LineReader {
public:
    LineReader(std::istream& input, std::string name)
        : stream(&input), _name(std::move(name)), buffer(firstBufferSize) {}

    // Returns the next line without its terminator, LF or CRLF. Valid until the next call.
    std::optional<std::string_view> next();

    // Returns the line that follows the next `lines` lines, without consuming it.
    std::optional<std::string_view> lookAhead(std::size_t lines);

    // The number of the line that next() most recently returned. The first line has the number 1.
    std::int64_t number() const { return _number; }

    RecordingError errorHere(std::string message) const {
        return {_name, _number, std::move(message)};
    }
    const std::string& name() const { return _name; }
    const std::optional<RecordingError>& error() const { return _error; }

private:
    std::optional<std::string_view> read();
    bool makeRoom();
    std::optional<std::string_view> checked(std::string_view line);
    void reportTooLong();
    std::string_view trimmed(std::size_t length);

    static constexpr std::size_t firstBufferSize = 4096;

    std::istream* stream;
    std::string _name;
    std::vector<char> buffer;
    std::deque<std::string> ahead;
    std::string taken; // the line that next() most recently took from `ahead`
    std::int64_t _number = 0;
    bool atStart = true;
    std::optional<RecordingError> _error;
};

// Returns whether a line contains only blanks.
bool isBlank(std::string_view line);

// Converts lines back into a stream, for a parser that needs a stream. Ends the stream early if the
// parser reads too many bytes without progress, because the parser buffers them and needs hundreds
// of bytes for each byte of text. An error of the LineReader also ends the stream. Owned by the
// parser's owner.
class LineBuffer : public std::streambuf {
public:
    // `maxBuffered` is the maximum number of bytes without progress. Comment lines (`#`) do not
    // count.
    LineBuffer(LineReader& source, std::size_t maxBuffered) : lines(source), limit(maxBuffered) {}

    // Call when the parser has produced an event.
    void progress() { buffered = 0; }
    bool isBufferExceeded() const { return bufferExceeded; }

protected:
    int_type underflow() override;

private:
    LineReader& lines;
    std::size_t limit;
    std::size_t buffered = 0;
    bool bufferExceeded = false; // never reset
    std::string line;
};

} // namespace glidemap

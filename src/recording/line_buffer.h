// Turns the lines of a LineReader back into a stream, for a parser that needs one. Ends the stream
// early if the parser reads far more than a value without progress: such a parser buffers its
// input, at hundreds of bytes for each byte of text.
//
// Thread:  one; takes no lock.
// Owner:   the parser's owner. Borrows the lines.
// Errors:  an error of the lines ends the stream; isStuck() reports a parser without progress.
#pragma once

#include "recording/line_reader.h"

#include <cstddef>
#include <istream>
#include <streambuf>
#include <string>

namespace glidemap {

class LineBuffer : public std::streambuf {
public:
    // `maxBuffered` is the number of bytes without progress; comment lines (`#`) do not count.
    LineBuffer(LineReader& source, std::size_t maxBuffered) : lines(source), limit(maxBuffered) {}

    // The parser has produced an event from its input.
    void progress() { buffered = 0; }
    bool isStuck() const { return stuck; }

protected:
    int_type underflow() override;

private:
    LineReader& lines;
    std::size_t limit;
    std::size_t buffered = 0;
    bool stuck = false; // permanently
    std::string line;
};

} // namespace glidemap

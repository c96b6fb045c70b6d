// Makes a stream again of the lines that a LineReader has taken from one, for a parser that wants
// one. It ends early where the parser swallows far more than a value without making anything of it:
// such a parser hoards what it reads, at hundreds of bytes for each one of the text.
//
// Thread:  one; holds no lock.
// Owner:   whoever parses. Borrows the lines.
// Errors:  those of the lines end the stream; hoarding is told by isStuck().
#pragma once

#include "recording/line_reader.h"

#include <cstddef>
#include <istream>
#include <streambuf>
#include <string>

namespace glidemap {

class LineBuffer : public std::streambuf {
public:
    // `mostHoarded` is how many bytes may go without progress; lines of comment (`#`) do not count.
    LineBuffer(LineReader& source, std::size_t mostHoarded) : lines(source), limit(mostHoarded) {}

    // The parser has made something of what it read.
    void progress() { hoarded = 0; }
    bool isStuck() const { return stuck; }

protected:
    int_type underflow() override;

private:
    LineReader& lines;
    std::size_t limit;
    std::size_t hoarded = 0;
    bool stuck = false; // for good
    std::string line;
};

} // namespace glidemap

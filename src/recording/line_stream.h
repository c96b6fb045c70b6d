// Makes a stream again of the lines that a LineReader has taken from one, so that a parser of its
// own can read what is left.
//
// Thread:  one; holds no lock.
// Owner:   whoever parses. Borrows the lines.
// Errors:  those of the lines end the stream.
#pragma once

#include "recording/line_reader.h"

#include <istream>
#include <streambuf>
#include <string>

namespace glidemap {

class LineBuffer : public std::streambuf {
public:
    explicit LineBuffer(LineReader& source) : lines(source) {}

protected:
    int_type underflow() override;

private:
    LineReader& lines;
    std::string line;
};

class LineStream : private LineBuffer, public std::istream {
public:
    explicit LineStream(LineReader& source) : LineBuffer(source), std::istream(this) {}
};

} // namespace glidemap

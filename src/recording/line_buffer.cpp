#include "recording/line_buffer.h"

#include <optional>

namespace glidemap {

namespace {

bool isComment(const std::string& line) {
    const auto start = line.find_first_not_of(" \t");
    return start != std::string::npos && line[start] == '#';
}

} // namespace

LineBuffer::int_type LineBuffer::underflow() {
    const auto next = stuck ? std::nullopt : lines.next();
    if (!next) {
        return traits_type::eof();
    }
    line.assign(*next);
    line += '\n';
    buffered += isComment(line) ? 0 : line.size();
    stuck = buffered > limit;
    if (stuck) {
        return traits_type::eof();
    }
    setg(line.data(), line.data(), line.data() + line.size());
    return traits_type::to_int_type(line.front());
}

} // namespace glidemap

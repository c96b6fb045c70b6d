#include "recording/line_stream.h"

namespace glidemap {

LineBuffer::int_type LineBuffer::underflow() {
    const auto next = lines.next();
    if (!next) {
        return traits_type::eof();
    }
    line.assign(*next);
    line += '\n';
    setg(line.data(), line.data(), line.data() + line.size());
    return traits_type::to_int_type(line.front());
}

} // namespace glidemap

#include "recording/line_reader.h"

#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

// Some editors write this before the first line.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// The byte order mark, CR, and the null byte that getline() adds.
constexpr std::size_t uncountedBytes = byteOrderMark.size() + 2;

bool isComment(const std::string& line) {
    const auto start = line.find_first_not_of(" \t");
    return start != std::string::npos && line[start] == '#';
}

} // namespace

std::optional<std::string_view> LineReader::next() {
    if (!ahead.empty()) {
        taken = std::move(ahead.front());
        ahead.pop_front();
        ++_number;
        return taken;
    }
    const auto line = read();
    if (line || _error) {
        ++_number;
    }
    if (_error) {
        _error->line = _number;
    }
    return line;
}

std::optional<std::string_view> LineReader::lookAhead(std::size_t lines) {
    while (ahead.size() <= lines) {
        const auto line = read();
        if (!line) {
            return std::nullopt;
        }
        ahead.emplace_back(*line);
    }
    return ahead[lines];
}

std::optional<std::string_view> LineReader::read() {
    if (_error) {
        return std::nullopt;
    }
    std::size_t length = 0;
    while (true) {
        char* const begin = buffer.data() + length;
        stream->getline(begin, static_cast<std::streamsize>(buffer.size() - length));
        length += static_cast<std::size_t>(stream->gcount());
        if (stream->bad()) {
            _error = RecordingError{_name, 0, "cannot be read"};
            return std::nullopt;
        }
        if (stream->good()) {
            return checked(trimmed(length - 1)); // `length` includes the line terminator
        }
        if (stream->eof()) {
            return length > 0 ? checked(trimmed(length)) : std::nullopt;
        }
        if (!makeRoom()) {
            return std::nullopt;
        }
    }
}

// Called when a line does not fit into the buffer.
bool LineReader::makeRoom() {
    constexpr std::size_t maxBuffer = maxLineLength + uncountedBytes;
    if (buffer.size() >= maxBuffer) {
        reportTooLong();
        return false;
    }
    buffer.resize(std::min(buffer.size() * 2, maxBuffer));
    stream->clear();
    return true;
}

// A line that fits into the buffer may still exceed the limit, because the buffer also has room for
// the bytes that do not count.
std::optional<std::string_view> LineReader::checked(std::string_view line) {
    if (line.size() > maxLineLength) {
        reportTooLong();
        return std::nullopt;
    }
    return line;
}

void LineReader::reportTooLong() {
    _error = RecordingError{_name, 0, "the line is longer than 16 MiB"};
}

std::string_view LineReader::trimmed(std::size_t length) {
    std::string_view line(buffer.data(), length);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    if (std::exchange(atStart, false) && line.starts_with(byteOrderMark)) {
        line.remove_prefix(byteOrderMark.size());
    }
    return line;
}

bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

LineBuffer::int_type LineBuffer::underflow() {
    const auto next = bufferExceeded ? std::nullopt : lines.next();
    if (!next) {
        return traits_type::eof();
    }
    line.assign(*next);
    line += '\n';
    buffered += isComment(line) ? 0 : line.size();
    bufferExceeded = buffered > limit;
    if (bufferExceeded) {
        return traits_type::eof();
    }
    setg(line.data(), line.data(), line.data() + line.size());
    return traits_type::to_int_type(line.front());
}

} // namespace glidemap

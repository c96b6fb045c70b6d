#include "recording/format_readers.h"
#include "recording/json_line.h"

#include <optional>
#include <string>
#include <utility>

namespace glidemap {

namespace {

class JsonLinesReader : public RecordingReader {
public:
    explicit JsonLinesReader(LineReader input) : lines(std::move(input)) {}

    bool next(Record& record) override {
        while (!_error && parseNextLine()) {
            if (line.kind != JsonLine::Kind::head) {
                fill(record);
                return true;
            }
            _device = line.device;
        }
        return false;
    }

    const std::optional<RecordingError>& error() const override { return _error; }
    const std::string& device() const override { return _device; }

private:
    bool parseNextLine();
    void fill(Record& record);

    LineReader lines;
    JsonLine line;
    std::string _device;
    std::optional<RecordingError> _error;
};

bool JsonLinesReader::parseNextLine() {
    auto text = lines.next();
    while (text && isBlank(*text)) {
        text = lines.next();
    }
    if (!text) {
        _error = lines.error();
        return false;
    }
    if (auto problem = parseJsonLine(*text, line)) {
        _error = lines.errorHere(std::move(*problem));
        return false;
    }
    return true;
}

void JsonLinesReader::fill(Record& record) {
    switch (line.kind) {
    case JsonLine::Kind::report:
        if (auto* report = std::get_if<Report>(&record)) {
            report->time = line.time;
            // Swap the arrays, so that both keep their memory for reuse.
            report->touches.swap(line.touches);
        } else {
            record = Report{line.time, line.touches};
        }
        break;
    case JsonLine::Kind::button:
        record = ButtonRecord{line.time, line.button, line.down};
        break;
    case JsonLine::Kind::frontmost:
        record = FrontmostRecord{line.time, std::move(line.application)};
        break;
    case JsonLine::Kind::time:
    case JsonLine::Kind::head:
        record = TimeRecord{line.time};
        break;
    }
}

} // namespace

std::unique_ptr<RecordingReader> readJsonLines(LineReader lines) {
    return std::make_unique<JsonLinesReader>(std::move(lines));
}

} // namespace glidemap

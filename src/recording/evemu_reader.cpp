#include "recording/evemu_line.h"
#include "recording/format_readers.h"
#include "recording/pad_records.h"

#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

using std::filesystem::path;

path descriptionBeside(const path& recording) {
    const std::string stem = recording.stem().string();
    const path folder = recording.has_parent_path() ? recording.parent_path() : path(".");
    path best;
    std::size_t bestLength = 0;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const path& candidate = entry->path();
        const std::string beginning = candidate.stem().string();
        if (candidate.extension() == ".desc" && beginning.size() > bestLength &&
            stem.starts_with(beginning)) {
            best = recording.parent_path() / candidate.filename();
            bestLength = beginning.size();
        }
    }
    return best;
}

bool isBlankOrComment(std::string_view line) {
    return isBlank(line) || line.starts_with('#');
}

class EvemuReader : public RecordingReader {
public:
    EvemuReader(LineReader input, const path& file) : lines(std::move(input)) { readHead(file); }

    bool next(Record& record) override;
    const std::optional<RecordingError>& error() const override { return _error; }
    const std::string& device() const override { return _device; }

private:
    void readHead(const path& file);
    bool readDescription(LineReader& source);
    bool readDescriptionBeside(const path& file);
    bool handleNextEvent();

    LineReader lines;
    EvemuDescription description;
    std::optional<PadRecords> records;
    std::string _device;
    std::optional<RecordingError> _error;
};

void EvemuReader::readHead(const path& file) {
    const bool described = readDescription(lines) || (!_error && readDescriptionBeside(file));
    if (_error) {
        return;
    }
    if (!described) {
        _error = RecordingError{
            lines.name(), 0, "does not describe its device, and there is no .desc file beside it"};
        return;
    }
    PadDescription pad;
    if (auto problem = describePad(description.device(), pad)) {
        _error = RecordingError{lines.name(), 0, std::move(*problem)};
        return;
    }
    _device = pad.name;
    records.emplace(pad);
}

// Reads up to the first event. Returns whether the description had any content.
bool EvemuReader::readDescription(LineReader& source) {
    bool described = false;
    for (auto line = source.lookAhead(0); line && !_error; line = source.lookAhead(0)) {
        const bool describes = isEvemuDescription(*line);
        if (!describes && !isBlankOrComment(*line)) {
            return described;
        }
        described = described || describes;
        if (auto problem = description.add(*source.next())) {
            _error = source.errorHere(std::move(*problem));
        }
    }
    if (!_error && !source.next()) {
        _error = source.error();
    }
    return described;
}

bool EvemuReader::readDescriptionBeside(const path& file) {
    const path found = file.empty() ? path() : descriptionBeside(file);
    if (found.empty()) {
        return false;
    }
    std::ifstream stream(found, std::ios::binary);
    LineReader source(stream, found.string());
    return readDescription(source);
}

bool EvemuReader::next(Record& record) {
    while (!_error) {
        if (records->take(record)) {
            return true;
        }
        if (!handleNextEvent()) {
            return false;
        }
    }
    return false;
}

bool EvemuReader::handleNextEvent() {
    auto line = lines.next();
    while (line && isBlankOrComment(*line)) {
        line = lines.next();
    }
    if (!line) {
        _error = lines.error();
        return false;
    }
    InputEvent event;
    if (auto problem = parseEvemuEvent(*line, event)) {
        _error = lines.errorHere(std::move(*problem));
        return false;
    }
    records->handle(event);
    return true;
}

} // namespace

std::unique_ptr<RecordingReader> readEvemu(LineReader lines, const path& file) {
    return std::make_unique<EvemuReader>(std::move(lines), file);
}

} // namespace glidemap

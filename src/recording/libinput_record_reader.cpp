#include "recording/format_readers.h"
#include "recording/libinput_record_file.h"
#include "recording/pad_records.h"

#include <string>
#include <utility>

namespace glidemap {

namespace {

class LibinputRecordReader : public RecordingReader {
public:
    explicit LibinputRecordReader(LineReader lines);

    bool next(Record& record) override;
    const std::optional<RecordingError>& error() const override { return _error; }
    const std::string& device() const override { return _device; }

private:
    LibinputRecordFile file;
    std::size_t handled = 0; // number of handled events
    std::optional<PadRecords> records;
    std::string _device;
    std::optional<RecordingError> _error;
};

LibinputRecordReader::LibinputRecordReader(LineReader lines) : file(parseLibinputRecord(lines)) {
    if (!file.touchpad) {
        _error = file.error ? file.error
                            : RecordingError{lines.name(), 0, "no touchpad among its devices"};
        return;
    }
    PadDescription pad;
    if (auto problem = describePad(*file.touchpad, pad)) {
        _error = RecordingError{lines.name(), 0, std::move(*problem)};
        return;
    }
    _device = pad.name;
    records.emplace(pad);
}

bool LibinputRecordReader::next(Record& record) {
    if (!records) {
        return false;
    }
    while (!records->take(record)) {
        if (handled == file.events.size()) {
            _error = file.error;
            return false;
        }
        records->handle(file.events[handled++]);
    }
    return true;
}

} // namespace

std::unique_ptr<RecordingReader> readLibinputRecord(LineReader lines) {
    return std::make_unique<LibinputRecordReader>(std::move(lines));
}

} // namespace glidemap

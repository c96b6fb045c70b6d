#include "recording/recording_reader.h"

#include "recording/evemu_line.h"
#include "recording/format_readers.h"
#include "recording/line_reader.h"

#include <cerrno>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

enum class Content {
    jsonLines,
    evemu,
    libinputRecord,
    unknown,
};

// More than an evemu recording needs: its initial comments list all capabilities of the device, one
// per line.
constexpr std::size_t maxHeadLines = 10'000;

bool startsWithYamlKey(std::string_view line) {
    const auto end = line.find_first_not_of("abcdefghijklmnopqrstuvwxyz");
    return end != std::string_view::npos && end > 1 && line[end] == ':';
}

Content contentOf(std::string_view line) {
    if (line.substr(line.find_first_not_of(" \t")).starts_with('{')) {
        return Content::jsonLines;
    }
    if (isEvemuLine(line)) {
        return Content::evemu;
    }
    if (line.starts_with("---") || startsWithYamlKey(line)) {
        return Content::libinputRecord;
    }
    return Content::unknown;
}

// The first line that is neither blank nor a comment determines the format, unless a comment before
// it begins with "# EVEMU". An empty recording counts as our own format.
Content recognise(LineReader& lines) {
    bool hasComment = false;
    for (std::size_t index = 0; index < maxHeadLines; ++index) {
        const auto line = lines.lookAhead(index);
        if (!line) {
            return hasComment && !lines.error() ? Content::unknown : Content::jsonLines;
        }
        if (line->starts_with("# EVEMU")) {
            return Content::evemu;
        }
        if (!isBlank(*line) && !line->starts_with('#')) {
            return contentOf(*line);
        }
        hasComment = hasComment || line->starts_with('#');
    }
    return Content::unknown;
}

// A recording that cannot be read: it ends immediately with an error.
class FailedRecording : public RecordingReader {
public:
    explicit FailedRecording(RecordingError error) : _error(std::move(error)) {}

    bool next(Record& /*record*/) override { return false; }
    const std::optional<RecordingError>& error() const override { return _error; }
    const std::string& device() const override { return _device; }

private:
    std::optional<RecordingError> _error;
    std::string _device;
};

class RecordingFile : public RecordingReader {
public:
    RecordingFile(std::unique_ptr<std::ifstream> file, std::string name,
                  const std::filesystem::path& path)
        : stream(std::move(file)), reader(openRecording(*stream, std::move(name), path)) {}

    bool next(Record& record) override { return reader->next(record); }
    const std::optional<RecordingError>& error() const override { return reader->error(); }
    const std::string& device() const override { return reader->device(); }

private:
    std::unique_ptr<std::ifstream> stream;
    std::unique_ptr<RecordingReader> reader;
};

} // namespace

std::string text(const RecordingError& error) {
    const std::string line = error.line > 0 ? ":" + std::to_string(error.line) : "";
    return error.name + line + ": " + error.message;
}

std::unique_ptr<RecordingReader> openRecording(std::istream& stream, std::string name,
                                               const std::filesystem::path& path) {
    LineReader lines(stream, std::move(name));
    switch (recognise(lines)) {
    case Content::jsonLines:
        return readJsonLines(std::move(lines));
    case Content::evemu:
        return readEvemu(std::move(lines), path);
    case Content::libinputRecord:
        return readLibinputRecord(std::move(lines));
    case Content::unknown:
        break;
    }
    return std::make_unique<FailedRecording>(
        RecordingError{lines.name(), 1, "not a recording by Glidemap, evemu or libinput record"});
}

std::unique_ptr<RecordingReader> openRecordingFile(const std::filesystem::path& path,
                                                   std::string name) {
    auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
    if (!*stream) {
        const std::string reason = std::generic_category().message(errno);
        return std::make_unique<FailedRecording>(
            RecordingError{std::move(name), 0, "cannot be opened: " + reason});
    }
    return std::make_unique<RecordingFile>(std::move(stream), std::move(name), path);
}

} // namespace glidemap

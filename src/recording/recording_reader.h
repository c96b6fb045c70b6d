// Reads a recording record by record. Detects the format by content: our own JSON Lines, evemu's
// text, or the YAML of `libinput record`.
//
// Units:   as in recording/record.h.
// Thread:  one at a time; takes no lock.
// Owner:   the caller. A reader borrows its stream.
// Errors:  stored in error(). Reading ends at the first error; the records before it are valid.
#pragma once

#include "recording/record.h"

#include <cstdint>
#include <filesystem>
#include <istream>
#include <memory>
#include <optional>
#include <string>

namespace glidemap {

struct RecordingError {
    std::string name;      // the recording's name, as the user wrote it
    std::int64_t line = 0; // from 1; 0 if the error is not in a line
    std::string message;

    friend bool operator==(const RecordingError&, const RecordingError&) = default;
};

// "NAME:LINE: message", or "NAME: message" without a line.
std::string text(const RecordingError& error);

class RecordingReader {
public:
    RecordingReader() = default;
    RecordingReader(const RecordingReader&) = delete;
    RecordingReader& operator=(const RecordingReader&) = delete;
    virtual ~RecordingReader() = default;

    // Moves the next record into `record` and reuses its memory. Returns false at the end and after
    // an error.
    virtual bool next(Record& record) = 0;

    // Why reading ended before the end of the recording. Opening may already have failed.
    virtual const std::optional<RecordingError>& error() const = 0;

    // The touchpad's name, if it has been read; empty if the recording has none.
    virtual const std::string& device() const = 0;
};

// Detects the format and creates its reader; never null. `name` appears in errors. `path` is the
// stream's file, used to find a description beside it; empty if the stream is not a file. Our own
// format is read as it arrives and may be endless; `libinput record` is read whole.
std::unique_ptr<RecordingReader> openRecording(std::istream& stream, std::string name,
                                               const std::filesystem::path& path = {});

// Does the same for a file, which the reader keeps open. If the file cannot be opened, the reader
// has an error.
std::unique_ptr<RecordingReader> openRecordingFile(const std::filesystem::path& path,
                                                   std::string name);

} // namespace glidemap

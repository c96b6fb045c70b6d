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

// Returns "NAME:LINE: message", or "NAME: message" if the error has no line.
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

    // Returns the error that ended reading, or nullopt. Opening the recording may already have
    // failed.
    virtual const std::optional<RecordingError>& error() const = 0;

    // Returns the touchpad's name. Empty if the recording does not contain it, or if it has not
    // been read yet.
    virtual const std::string& device() const = 0;
};

// Detects the format and returns a reader for it, never null. `name` appears in errors. `path` is
// the stream's file, whose folder may contain a description; empty if the stream is not a file. Our
// own format is read as it arrives and may be endless; `libinput record` is read completely.
std::unique_ptr<RecordingReader> openRecording(std::istream& stream, std::string name,
                                               const std::filesystem::path& path = {});

// Does the same for a file. The reader keeps the file open. If the file cannot be opened, the
// reader has an error.
std::unique_ptr<RecordingReader> openRecordingFile(const std::filesystem::path& path,
                                                   std::string name);

} // namespace glidemap

// Reads a recording record by record: our own JSON Lines, evemu's text, or the YAML of `libinput
// record`, told apart by their content.
//
// Units:   as in recording/record.h.
// Thread:  one at a time; holds no lock.
// Owner:   the caller. A reader borrows the stream that it was opened on.
// Errors:  kept as a value in error(). Reading ends at the first one; what came before it is good.
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
    std::string name;      // of the recording, as the person who named it wrote it
    std::int64_t line = 0; // from 1; 0 where the failure belongs to no line
    std::string message;

    friend bool operator==(const RecordingError&, const RecordingError&) = default;
};

// "NAME:LINE: message", or "NAME: message" where there is no line.
std::string text(const RecordingError& error);

class RecordingReader {
public:
    RecordingReader() = default;
    RecordingReader(const RecordingReader&) = delete;
    RecordingReader& operator=(const RecordingReader&) = delete;
    virtual ~RecordingReader() = default;

    // Puts the next record into `record`, reusing the memory it holds. False at the end and after
    // an error.
    virtual bool next(Record& record) = 0;

    // Why reading ended before the end of the recording. Opening may already have failed.
    virtual const std::optional<RecordingError>& error() const = 0;

    // The touchpad's name, as far as it has been read; empty where the recording does not tell.
    virtual const std::string& device() const = 0;
};

// Recognises the content and makes its reader; never null. `name` is used in errors. `path` says
// where the stream's file is, so that a description kept beside it can be found; empty for a stream
// that is no file. Our own format is read as it arrives and may be endless; `libinput record` is
// read whole.
std::unique_ptr<RecordingReader> openRecording(std::istream& stream, std::string name,
                                               const std::filesystem::path& path = {});

// The same for a file, which the reader keeps open. A file that cannot be opened is an error of the
// reader.
std::unique_ptr<RecordingReader> openRecordingFile(const std::filesystem::path& path,
                                                   std::string name);

} // namespace glidemap

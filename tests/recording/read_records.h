// Reads a whole recording and formats its records as short texts, which are easy to compare and
// print.
//
//   "0.5: 1@0.25,0.75 state 4, 2@0.5,0.5 state 3"     a report of two contacts
//   "0.5: nothing"                                    an empty report
//   "0.5: button 0 down"   "0.5: frontmost org.example.App 'Example'"
//   "0.5: frontmost none"   "0.5: time"
#pragma once

#include "recording/recording_reader.h"

#include <filesystem>
#include <string>
#include <vector>

namespace glidemap::test {

struct ReadRecording {
    std::vector<std::string> records;
    std::string device;
    std::string error; // empty without an error
};

ReadRecording readRecords(RecordingReader& reader);

// The recording's name in errors is "file".
ReadRecording readRecords(const std::string& content);

ReadRecording readRecordFile(const std::filesystem::path& path);

} // namespace glidemap::test

#include "read_records.h"

#include <array>
#include <cstdio>
#include <sstream>

namespace glidemap::test {

namespace {

// Prints enough digits for times since 1970 with microseconds.
std::string number(double value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.16g", value);
    return text.data();
}

std::string position(float value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.6g", static_cast<double>(value));
    return text.data();
}

std::string describe(const Report& report) {
    std::string text;
    for (const MTTouch& touch : report.touches) {
        text += (text.empty() ? "" : ", ") + std::to_string(touch.identifier) + "@" +
                position(touch.normalized.pos.x) + "," + position(touch.normalized.pos.y) +
                " state " + std::to_string(touch.state);
    }
    return text.empty() ? "nothing" : text;
}

std::string describe(const ButtonRecord& record) {
    return "button " + std::to_string(record.button) + (record.down ? " down" : " up");
}

std::string describe(const FrontmostRecord& record) {
    return "frontmost " + (record.application ? record.application->bundleID + " '" +
                                                    record.application->name + "'"
                                              : "none");
}

std::string describe(const TimeRecord& /*record*/) {
    return "time";
}

} // namespace

ReadRecording readRecords(RecordingReader& reader) {
    ReadRecording result;
    Record record;
    while (reader.next(record)) {
        result.records.push_back(number(timeOf(record)) + ": " +
                                 std::visit([](const auto& any) { return describe(any); }, record));
    }
    result.device = reader.device();
    result.error = reader.error() ? text(*reader.error()) : "";
    return result;
}

ReadRecording readRecords(const std::string& content) {
    std::istringstream stream(content);
    return readRecords(*openRecording(stream, "file"));
}

ReadRecording readRecordFile(const std::filesystem::path& path) {
    return readRecords(*openRecordingFile(path, path.filename().string()));
}

} // namespace glidemap::test

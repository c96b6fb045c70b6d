#include "recording_invariants.h"

#include "recording/json_line.h"
#include "recording/recording_writer.h"
#include "require.h"

#include <cmath>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace glidemap::fuzz {

namespace {

void checkValues(const Record& record) {
    require(std::isfinite(timeOf(record)), "a time is finite");
    if (const auto* report = std::get_if<Report>(&record)) {
        require(report->touches.size() <= maxTouches, "a report has a bounded size");
        for (const MTTouch& touch : report->touches) {
            const MTPoint& position = touch.normalized.pos;
            require(std::isfinite(position.x) && std::isfinite(position.y), "a position is finite");
        }
    }
}

bool isSame(const Report& one, const Report& other) {
    if (one.touches.size() != other.touches.size()) {
        return false;
    }
    for (std::size_t index = 0; index < one.touches.size(); ++index) {
        const MTTouch& a = one.touches[index];
        const MTTouch& b = other.touches[index];
        if (a.identifier != b.identifier || a.state != b.state ||
            a.normalized.pos.x != b.normalized.pos.x || a.normalized.pos.y != b.normalized.pos.y) {
            return false;
        }
    }
    return true;
}

bool isSame(const ButtonRecord& one, const ButtonRecord& other) {
    return one.button == other.button && one.down == other.down;
}

bool isSame(const FrontmostRecord& one, const FrontmostRecord& other) {
    return one.application == other.application;
}

bool isSame(const TimeRecord& /*one*/, const TimeRecord& /*other*/) {
    return true;
}

bool isSame(const Record& one, const Record& other) {
    if (one.index() != other.index()) {
        return false;
    }
    // Times are written in microseconds, and large doubles are even less precise.
    const double tolerance = 1e-6 + std::abs(timeOf(one)) * 1e-15;
    return std::abs(timeOf(one) - timeOf(other)) <= tolerance &&
           std::visit(
               [&](const auto& any) {
                   using Kind = std::decay_t<decltype(any)>;
                   return isSame(any, std::get<Kind>(other));
               },
               one);
}

void checkRoundTrip(const std::vector<Record>& records) {
    std::stringstream stream;
    RecordingWriter writer(stream);
    writer.writeHead("a pad");
    for (const Record& record : records) {
        writer.write(record);
    }
    const auto reader = openRecording(stream, "written");
    Record record;
    for (const Record& expected : records) {
        require(reader->next(record), "a written record can be read");
        require(isSame(expected, record), "a written record is read unchanged");
    }
    require(!reader->next(record) && !reader->error(), "no further record was written");
}

} // namespace

void readAndCheck(RecordingReader& reader) {
    std::vector<Record> records;
    Record record;
    while (reader.next(record)) {
        checkValues(record);
        records.push_back(record);
    }
    const auto error = reader.error();
    require(!reader.next(record), "the reader stays at its end");
    require(reader.error() == error, "an error does not change");
    if (error) {
        require(!error->message.empty() && error->line >= 0, "an error has a message");
        (void)text(*error);
    }
    checkRoundTrip(records);
}

} // namespace glidemap::fuzz

#include "recording/recording_writer.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <cstdio>
#include <map>

namespace glidemap {

namespace {

// With float as its number type, the library writes the shortest text that reads back as the same
// float.
using FloatJson = nlohmann::basic_json<std::map, std::vector, std::string, bool, std::int64_t,
                                       std::uint64_t, float>;

std::string quoted(const std::string& text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// In seconds. Above about this time, a double is no more precise than a microsecond.
constexpr double maxExactTime = 4e9;

std::string timeText(double time) {
    if (std::abs(time) > maxExactTime) {
        return nlohmann::json(time).dump();
    }
    const long long microseconds = std::llround(time * 1e6);
    const long long magnitude = std::abs(microseconds);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%s%lld.%06lld", microseconds < 0 ? "-" : "",
                  magnitude / 1'000'000, magnitude % 1'000'000);
    return text.data();
}

bool hasPosition(const MTTouch& touch) {
    return std::isfinite(touch.normalized.pos.x) && std::isfinite(touch.normalized.pos.y);
}

} // namespace

void RecordingWriter::writeHead(const std::string& device) {
    stream << R"({"glidemap-recording":1)";
    if (!device.empty()) {
        stream << R"(,"device":)" << quoted(device);
    }
    stream << "}\n";
}

void RecordingWriter::write(const Record& record) {
    if (!std::isfinite(timeOf(record))) {
        return;
    }
    stream << R"({"t":)" << timeText(timeOf(record));
    std::visit([this](const auto& any) { writeRest(any); }, record);
    stream << "}\n";
}

void RecordingWriter::writeRest(const Report& report) {
    stream << R"(,"touches":[)";
    const char* separator = "";
    for (const MTTouch& touch : report.touches) {
        if (hasPosition(touch)) {
            const MTPoint& position = touch.normalized.pos;
            stream << separator << '[' << std::to_string(touch.identifier) << ','
                   << FloatJson(position.x) << ',' << FloatJson(position.y) << ','
                   << std::to_string(touch.state) << ']';
            separator = ",";
        }
    }
    stream << ']';
}

void RecordingWriter::writeRest(const ButtonRecord& record) {
    stream << R"(,"button":)" << std::to_string(record.button) << R"(,"down":)"
           << (record.down ? "true" : "false");
}

void RecordingWriter::writeRest(const FrontmostRecord& record) {
    stream << R"(,"frontmost":)";
    if (!record.application) {
        stream << "null";
        return;
    }
    stream << R"({"bundleID":)" << quoted(record.application->bundleID) << R"(,"name":)"
           << quoted(record.application->name) << '}';
}

void RecordingWriter::writeRest(const TimeRecord& /*record*/) {}

} // namespace glidemap

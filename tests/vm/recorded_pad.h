// A touchpad in evemu's text format, and its recorded events.
//
// The tests have their own reader. The kernel needs a complete description (identity, properties,
// every key and axis), but the program's readers keep only a part of it. A test must also not
// depend on the code under test.
//
// Units:   axis values and events in the device's own units; times are omitted, because the kernel
//          stamps the events.
// Errors:  lines that are neither description nor event are ignored; a missing file reads as an
//          empty recording.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <istream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace glidemap::test {

struct PadAxis {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t flat = 0;
    std::int32_t resolution = 0;
    std::int32_t fuzz = 0;

    friend bool operator==(const PadAxis&, const PadAxis&) = default;
};

// The device description that uinput requires. The device has only the listed axes.
struct PadShape {
    std::string name;
    std::uint16_t bus = 0;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t version = 0;
    std::set<int> properties;
    std::set<int> keys;
    std::map<int, PadAxis> axes;

    std::int32_t slotCount() const; // 0 if the pad has no slots
    bool described() const { return !name.empty(); }

    friend bool operator==(const PadShape&, const PadShape&) = default;
};

struct PadEvent {
    std::uint16_t type = 0;
    std::uint16_t code = 0;
    std::int32_t value = 0;

    friend bool operator==(const PadEvent&, const PadEvent&) = default;
    friend std::ostream& operator<<(std::ostream& output, const PadEvent& event);
};

// The events between two SYN_REPORTs, without the SYN_REPORT.
using EventFrame = std::vector<PadEvent>;

struct RecordedPad {
    PadShape shape;
    std::vector<EventFrame> frames;
};

RecordedPad readRecordedPad(std::istream& text);

// Returns the file with the recording's description: the recording itself, or the description in
// the same folder with the longest name that is a prefix of the recording's name.
std::filesystem::path descriptionOf(const std::filesystem::path& recording);

// Reads a recording with its description.
RecordedPad readRecordedPad(const std::filesystem::path& recording);

} // namespace glidemap::test

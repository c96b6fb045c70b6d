// A touchpad as evemu's text describes it, and the events that were recorded from it.
//
// Read here and not by the program's own readers, because the kernel needs all of a description
// (identity, properties, every key and axis) where the program needs little, and because a test
// must not lean on what it tests.
//
// Units:   axis values and events as the device has them; times are left out, for the kernel gives
// its own. Errors:  lines that are no description and no event are comments; a missing file reads
// as an empty recording.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <istream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace glidemap::vm {

struct PadAxis {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t flat = 0;
    std::int32_t resolution = 0;
    std::int32_t fuzz = 0;

    friend bool operator==(const PadAxis&, const PadAxis&) = default;
};

// Everything that uinput wants to know. An axis that is not listed does not exist.
struct PadShape {
    std::string name;
    std::uint16_t bus = 0;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t version = 0;
    std::set<int> properties;
    std::set<int> keys;
    std::map<int, PadAxis> axes;

    std::int32_t slotCount() const; // 0 where the pad knows no slots
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

// The events between two synchronisations, without the synchronisation itself.
using EventFrame = std::vector<PadEvent>;

struct RecordedPad {
    PadShape shape;
    std::vector<EventFrame> frames;
};

RecordedPad readRecordedPad(std::istream& text);

// Where the description of a recording is: in the recording itself, or in the description beside it
// whose name the recording's name continues (the longest of them).
std::filesystem::path descriptionOf(const std::filesystem::path& recording);

// A recording with its description, wherever that is.
RecordedPad readRecordedPad(const std::filesystem::path& recording);

} // namespace glidemap::vm

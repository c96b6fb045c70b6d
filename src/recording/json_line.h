// The content of one line of our own recording format.
//
// Units:   as in recording/record.h.
// Thread:  one; takes no lock.
// Errors:  returned as a human-readable message, without file and line.
#pragma once

#include "recording/record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// The device manager also rejects larger reports.
inline constexpr std::size_t maxTouches = 65'536;

struct JsonLine {
    enum class Kind {
        head,
        report,
        button,
        frontmost,
        time,
    };

    Kind kind = Kind::time;
    double time = 0;
    std::vector<MTTouch> touches; // for a report
    std::int32_t button = 0;
    bool down = false;
    std::optional<FrontmostRecord::Application> application;
    std::string device; // for a head; empty if the head has no device name
};

// Parses `text` into `line` and reuses its memory. Returns an error message, or nullopt on success.
std::optional<std::string> parseJsonLine(std::string_view text, JsonLine& line);

} // namespace glidemap

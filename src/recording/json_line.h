// What one line of our own recording format says.
//
// Units:   as in recording/record.h.
// Thread:  one; holds no lock.
// Errors:  answered as a message for people, without file and line.
#pragma once

#include "recording/record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// The manager of the devices believes no more contacts in one report either.
inline constexpr std::size_t mostTouches = 65'536;

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
    std::vector<MTTouch> touches; // of a report
    std::int32_t button = 0;
    bool down = false;
    std::optional<FrontmostRecord::Application> application;
    std::string device; // of a head; empty where it is not told
};

// Reads `text` into `line`, reusing the memory it holds. Answers what is wrong, or nothing.
std::optional<std::string> parseJsonLine(std::string_view text, JsonLine& line);

} // namespace glidemap

// The records of a recording: the reports of a touchpad, its buttons, and changes of the frontmost
// application.
//
// Units:   times in seconds as recorded (any origin, possibly going backwards); contacts as in
//          input/mt_touch.h.
// Errors:  none; plain values. A reader returns only finite times and positions.
#pragma once

#include "input/mt_touch.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace glidemap {

// All contacts of one moment. An empty report means that no finger touches the pad.
struct Report {
    double time = 0;
    std::vector<MTTouch> touches;
};

// A physical button of the touchpad: 0 left, 1 right, 2 middle.
struct ButtonRecord {
    double time = 0;
    std::int32_t button = 0;
    bool down = false;

    friend bool operator==(const ButtonRecord&, const ButtonRecord&) = default;
};

// Another application became frontmost, or no application is frontmost.
struct FrontmostRecord {
    struct Application {
        std::string bundleID;
        std::string name;

        friend bool operator==(const Application&, const Application&) = default;
    };

    double time = 0;
    std::optional<Application> application;

    friend bool operator==(const FrontmostRecord&, const FrontmostRecord&) = default;
};

// A record of an unknown kind, written by a newer version of the program. Only its time is used.
struct TimeRecord {
    double time = 0;

    friend bool operator==(const TimeRecord&, const TimeRecord&) = default;
};

using Record = std::variant<Report, ButtonRecord, FrontmostRecord, TimeRecord>;

inline double timeOf(const Record& record) {
    return std::visit([](const auto& any) { return any.time; }, record);
}

} // namespace glidemap

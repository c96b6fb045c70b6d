// What a recording is made of: the reports of a touchpad, its button, and the moments at which
// another application came to the front.
//
// Units:   times in seconds as the recording has them (any origin, they may go backwards); records
// as in
//          input/mt_touch.h.
// Errors:  none; plain values. A reader hands out finite times and positions only.
#pragma once

#include "input/mt_touch.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace glidemap {

// All contacts of one moment. None means that every finger has left the pad.
struct Report {
    double time = 0;
    std::vector<MTTouch> touches;
};

// A physical mouse button: 0 left, 1 right, 2 middle.
struct ButtonRecord {
    double time = 0;
    std::int32_t button = 0;
    bool down = false;

    friend bool operator==(const ButtonRecord&, const ButtonRecord&) = default;
};

// Another application is frontmost from now on, or none.
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

// A moment at which something happened that this version does not know. Time still passes until
// then.
struct TimeRecord {
    double time = 0;

    friend bool operator==(const TimeRecord&, const TimeRecord&) = default;
};

using Record = std::variant<Report, ButtonRecord, FrontmostRecord, TimeRecord>;

inline double timeOf(const Record& record) {
    return std::visit([](const auto& any) { return any.time; }, record);
}

} // namespace glidemap

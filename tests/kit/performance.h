// Plays scripts to the recognizer and returns the gestures that it reports.
//
// Units:   seconds of the script.
// Thread:  the test's; time is virtual.
#pragma once

#include "core/gesture_type.h"
#include "input/touch_frame.h"
#include "kit/printers.h"
#include "kit/script.h"

#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace glidemap::test {

struct ReportedGesture {
    double time = 0;
    GestureType gesture{};

    friend bool operator==(const ReportedGesture&, const ReportedGesture&) = default;
    friend void PrintTo(const ReportedGesture& reported, std::ostream* stream) {
        *stream << reported.time << " s: " << rawValue(reported.gesture);
    }
};

// The component to which a script is played.
enum class Through {
    recognizer, // frames go directly to a recognizer, which reports every gesture
    engine,     // records go to the contact callback, and the cooldown applies
};

struct PerformanceStage {
    Through through = Through::recognizer;
    std::vector<int> boundDoubleTaps = {}; // finger counts whose double tap has a binding
};

// Plays the frames, and runs delayed work when it is due, between and after the frames. Returns all
// reported gestures in order.
std::vector<ReportedGesture> perform(std::span<const TouchFrame> frames,
                                     const PerformanceStage& stage = {});
std::vector<ReportedGesture> perform(const Script& script, const PerformanceStage& stage = {});

std::vector<GestureType> gesturesOf(std::span<const ReportedGesture> reported);

// Returns one line per gesture.
std::string written(std::span<const ReportedGesture> reported);
std::string written(std::span<const GestureType> gestures);

} // namespace glidemap::test

// Statistics of all played recordings, for --stats.
//
// Units:   seconds.
#pragma once

#include "input/mt_touch.h"
#include "run_event.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace glidemap::replay {

class Statistics {
public:
    // Call this before the first record of each run.
    void beginRun();

    void count(double time, const std::vector<MTTouch>& touches);
    void countRecordAt(double time);
    void count(const Recognised& recognised);

    // Returns several lines, each with a line terminator.
    std::string text() const;

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point started = Clock::now();
    std::uint64_t frames = 0;
    std::uint64_t contacts = 0; // contact records, one per finger and frame
    std::uint64_t sessions = 0; // from the first finger down to the last finger up
    std::uint64_t delivered = 0;
    std::uint64_t dropped = 0;
    double recorded = 0;
    double lastTime = 0;
    bool hasTime = false;
    bool isTouched = false;
};

} // namespace glidemap::replay

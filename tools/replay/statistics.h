// Figures of everything that was played, for --stats.
//
// Units:   seconds.
#pragma once

#include "happening.h"
#include "input/mt_touch.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace glidemap::replay {

class Statistics {
public:
    // The records of another run follow.
    void beginRun();

    void count(double time, const std::vector<MTTouch>& touches);
    void countRecordAt(double time);
    void count(const Recognised& recognised);

    // A few lines, each ended.
    std::string text() const;

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point started = Clock::now();
    std::uint64_t frames = 0;
    std::uint64_t contacts = 0; // records of contacts, one a finger and frame
    std::uint64_t sessions = 0; // from the first finger down to the last one up
    std::uint64_t delivered = 0;
    std::uint64_t dropped = 0;
    double recorded = 0;
    double lastTime = 0;
    bool hasTime = false;
    bool isTouched = false;
};

} // namespace glidemap::replay

// Counts how often the touching fingers changed from report to report.
//
// Thread:  one at a time.
// Owner:   the engine.
#pragma once

#include "input/touch_frame.h"

#include <cstdint>
#include <vector>

namespace glidemap {

class FingerChanges {
public:
    FingerChanges();

    // Returns the number of changes up to this report. Fingers that are reported in another order,
    // or without a position, count as changed.
    std::uint64_t countWith(const std::vector<TouchPoint>& touches);

    // The next report counts as a change.
    void forget() { isComparable = false; }

private:
    std::uint64_t count = 0;
    bool isComparable = false;
    std::vector<std::int32_t> touching;
    std::vector<std::int32_t> previous;
};

} // namespace glidemap

// Counts how often the set of touching fingers changes between reports.
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

    // Returns the number of changes up to and including this report. Fingers that are reported in a
    // different order, or without a position, count as changed.
    std::uint64_t countWith(const std::vector<TouchPoint>& touches);

    // Makes the next report count as a change.
    void forget() { isComparable = false; }

private:
    std::uint64_t count = 0;
    bool isComparable = false;
    std::vector<std::int32_t> touching;
    std::vector<std::int32_t> previous;
};

} // namespace glidemap

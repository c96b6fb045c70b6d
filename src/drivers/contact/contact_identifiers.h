// Numbers the contacts of a pad (1, 2, 3 …) in the order of their first reports.
//
// Thread:  one.
// Owner:   ContactAssembler.
#pragma once

#include <cstdint>
#include <limits>

namespace glidemap {

class ContactIdentifiers {
public:
    std::int32_t next() {
        last = last < std::numeric_limits<std::int32_t>::max() ? last + 1 : 1;
        return last;
    }

private:
    std::int32_t last = 0;
};

} // namespace glidemap

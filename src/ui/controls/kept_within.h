// Returns the position closest to `wanted` at which an item of length `extent` lies between `from`
// and `upTo`. An item that is longer than this range starts at `from`.
//
// Thread:  any.
#pragma once

#include <algorithm>

namespace glidemap {

constexpr int keptWithin(int wanted, int extent, int from, int upTo) {
    return std::max(from, std::min(wanted, upTo - extent));
}

} // namespace glidemap

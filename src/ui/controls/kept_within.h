// The position on an axis that is closest to the wanted position within two bounds. An item that is
// longer than the available space starts at the lower bound.
//
// Thread:  any.
#pragma once

#include <algorithm>

namespace glidemap {

constexpr int keptWithin(int wanted, int extent, int from, int upTo) {
    return std::max(from, std::min(wanted, upTo - extent));
}

} // namespace glidemap

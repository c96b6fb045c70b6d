// Where something lies along one line when it is to stay between two ends: where it is wanted, else
// as near as it can be. What is longer than the room begins where the room does.
//
// Thread:  any.
#pragma once

#include <algorithm>

namespace glidemap {

constexpr int keptWithin(int wanted, int extent, int from, int upTo) {
    return std::max(from, std::min(wanted, upTo - extent));
}

} // namespace glidemap

#include "recognition/track_list.h"

#include <algorithm>

namespace glidemap {

namespace {

// Two hands, and a little more. The memory of further tracks is given back at the end of their
// session.
constexpr std::size_t keptSlots = 16;

} // namespace

void TrackList::begin(std::int32_t finger, double time, PadPoint position, LiveIndex& live) {
    if (count == capacity && !makeRoom(live)) {
        return;
    }
    if (count == slots.size()) {
        slots.emplace_back();
    }
    slots[count].begin(finger, time, position);
    live.set(finger, count);
    ++count;
}

void TrackList::end(std::size_t index, double time) {
    slots[index].end(time);
    ++endedCount;
}

bool TrackList::makeRoom(LiveIndex& live) {
    crowded = true;
    if (endedCount == 0) {
        return false;
    }
    std::stable_partition(slots.begin(), slots.begin() + static_cast<std::ptrdiff_t>(count),
                          [](const Track& track) { return !track.ended; });
    count -= endedCount;
    endedCount = 0;
    for (std::size_t index = 0; index < count; ++index) {
        live.set(slots[index].id, index);
    }
    return true;
}

void TrackList::clear() {
    if (slots.size() > keptSlots) {
        slots.resize(keptSlots);
    }
    count = 0;
    endedCount = 0;
    crowded = false;
}

} // namespace glidemap

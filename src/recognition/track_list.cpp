#include "recognition/track_list.h"

#include <utility>

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
    // By swaps, which keep every slot's memory; a library's stable partition asks for a buffer.
    std::size_t kept = 0;
    for (std::size_t index = 0; index < count; ++index) {
        if (!slots[index].ended) {
            if (kept != index) {
                std::swap(slots[kept], slots[index]);
            }
            live.set(slots[kept].id, kept);
            ++kept;
        }
    }
    count = kept;
    endedCount = 0;
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

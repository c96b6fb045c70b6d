#include "recognition/track_list.h"

#include <utility>

namespace glidemap {

namespace {

// Room for two hands and a few spare slots. The memory of further tracks is freed at the end of the
// session.
constexpr std::size_t keptSlots = 16;

} // namespace

void TrackList::begin(std::int32_t finger, double time, PadPoint position, LiveIndex& live) {
    if (count == capacity && !makeRoom(live)) {
        return;
    }
    if (count == places.size()) {
        places.emplace_back();
    }
    places[count].begin(finger, time, position);
    live.set(finger, count);
    ++count;
}

void TrackList::end(std::size_t index, double time) {
    places[index].end(time);
    ++endedCount;
}

bool TrackList::makeRoom(LiveIndex& live) {
    crowded = true;
    if (endedCount == 0) {
        return false;
    }
    // Swap, to keep the memory of every slot; std::stable_partition would allocate a buffer.
    std::size_t kept = 0;
    for (std::size_t index = 0; index < count; ++index) {
        if (!places[index].ended) {
            if (kept != index) {
                std::swap(places[kept], places[index]);
            }
            live.set(places[kept].id, kept);
            ++kept;
        }
    }
    count = kept;
    endedCount = 0;
    return true;
}

void TrackList::clear() {
    if (places.size() > keptSlots) {
        places.resize(keptSlots);
    }
    count = 0;
    endedCount = 0;
    crowded = false;
}

} // namespace glidemap

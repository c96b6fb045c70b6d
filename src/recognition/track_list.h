// The tracks of a session, in landing order.
//
// A session lasts as long as any finger rests on the pad, possibly for hours, while other fingers
// come and go. The list is therefore bounded: when it is full, it drops the tracks that have ended
// and is marked as crowded. A crowded session cannot contain a gesture that depends on all its
// tracks: a hand cannot land that many fingers within 1.5 s, the longest duration of a gesture of
// several fingers. A hold and tap depends only on the tap and on the fingers that are still down,
// so it is recognised during the whole session.
//
// Thread:  the engine's queue.
// Errors:  a finger is not tracked if it lands while the list is full of fingers that are
//          still down.
#pragma once

#include "recognition/live_index.h"
#include "recognition/pad_geometry.h"
#include "recognition/track.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace glidemap {

class TrackList {
public:
    static constexpr std::size_t capacity = 256;

    // Adds a track and registers it in `live`.
    void begin(std::int32_t finger, double time, PadPoint position, LiveIndex& live);
    void end(std::size_t index, double time);

    // Removes all tracks. Keeps the memory for the fingers of two hands, and frees the rest.
    void clear();

    std::size_t size() const { return count; }
    bool isCrowded() const { return crowded; }
    std::span<const Track> all() const { return std::span(places).first(count); }
    const Track& operator[](std::size_t index) const { return places[index]; }
    Track& operator[](std::size_t index) { return places[index]; }

private:
    bool makeRoom(LiveIndex& live);

    std::vector<Track> places; // the first `count` are tracks; the others keep memory for reuse
    std::size_t count = 0;
    std::size_t endedCount = 0;
    bool crowded = false;
};

} // namespace glidemap

// The tracks of a session, in the order in which the fingers landed.
//
// A session lasts as long as any finger rests on the pad, which may be hours, while others come and
// go. So the list has an end: once it holds as many tracks as it can, those that have ended are
// forgotten and the list is marked as crowded. No gesture decided by all the tracks of a session
// can come of a crowded one: a hand cannot land that many fingers in the second and a half that the
// slowest of these gestures may take. Hold-and-tap needs only the fingers still down and goes on
// for as long as the session does.
//
// Thread:  the engine's queue.
// Errors:  a finger that lands while the list is full of fingers still down is not followed.
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

    // Adds a track and enters it into `live`.
    void begin(std::int32_t finger, double time, PadPoint position, LiveIndex& live);
    void end(std::size_t index, double time);

    // Forgets all tracks and keeps the memory that a pair of hands needs.
    void clear();

    std::size_t size() const { return count; }
    bool isCrowded() const { return crowded; }
    std::span<const Track> all() const { return std::span(places).first(count); }
    const Track& operator[](std::size_t index) const { return places[index]; }
    Track& operator[](std::size_t index) { return places[index]; }

private:
    bool makeRoom(LiveIndex& live);

    std::vector<Track> places; // the first `count` are tracks, the others kept for their memory
    std::size_t count = 0;
    std::size_t endedCount = 0;
    bool crowded = false;
};

} // namespace glidemap

// The history of one finger within a session.
//
// Units:   positions normalised 0..1; times in seconds of the frames' timestamps.
// Thread:  the engine's queue.
#pragma once

#include "recognition/pad_geometry.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace glidemap {

struct Track {
    // Steps shorter than minStep are not added to the path. maxPathPoints bounds the cost of a
    // finger that stays on the pad for a long time.
    static constexpr double minStep = 0.004;
    static constexpr std::size_t maxPathPoints = 2000;

    std::int32_t id = 0;
    double startTime = 0;
    PadPoint startPos;
    PadPoint lastPos;
    double maxDrift = 0;          // the maximum distance from startPos
    std::vector<PadPoint> points; // the thinned path, starting with startPos
    bool ended = false;
    double endTime = 0; // 0 while the finger is on the pad

    // Restarts the track, reusing its memory.
    void begin(std::int32_t finger, double time, PadPoint position);

    // Defined in the header, so that it can be inlined: it runs for every finger of every frame.
    void moveTo(PadPoint position) {
        maxDrift = std::max(maxDrift, distance(position, startPos));
        lastPos = position;
        if (points.size() < maxPathPoints && distance(position, points.back()) >= minStep) {
            points.push_back(position);
        }
    }

    void end(double time);

    PadPoint displacement() const { return lastPos - startPos; }
};

} // namespace glidemap

// One finger's history within a session.
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
    // A step shorter than this adds nothing to a shape, and a longest path bounds what a long-held
    // finger costs.
    static constexpr double shortestStep = 0.004;
    static constexpr std::size_t longestPath = 2000;

    std::int32_t id = 0;
    double startTime = 0;
    PadPoint startPos;
    PadPoint lastPos;
    double maxDrift = 0;          // the farthest it has been from startPos
    std::vector<PadPoint> points; // the thinned path, beginning with startPos
    bool ended = false;
    double endTime = 0; // 0 while the finger is on the pad

    // Begins anew in the memory of an older track.
    void begin(std::int32_t finger, double time, PadPoint position);

    // Here and not in the source file: it runs for every finger of every frame.
    void moveTo(PadPoint position) {
        maxDrift = std::max(maxDrift, distance(position, startPos));
        lastPos = position;
        if (points.size() < longestPath && distance(position, points.back()) >= shortestStep) {
            points.push_back(position);
        }
    }

    void end(double time);

    PadPoint displacement() const { return lastPos - startPos; }
};

} // namespace glidemap

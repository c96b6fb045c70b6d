#include "recognition/track.h"

#include <algorithm>

namespace glidemap {

void Track::begin(std::int32_t finger, double time, PadPoint position) {
    id = finger;
    startTime = time;
    startPos = position;
    lastPos = position;
    maxDrift = 0;
    points.clear();
    points.push_back(position);
    ended = false;
    endTime = 0;
}

void Track::moveTo(PadPoint position) {
    maxDrift = std::max(maxDrift, distance(position, startPos));
    lastPos = position;
    if (points.size() < longestPath && distance(position, points.back()) >= shortestStep) {
        points.push_back(position);
    }
}

void Track::end(double time) {
    ended = true;
    endTime = time;
}

} // namespace glidemap

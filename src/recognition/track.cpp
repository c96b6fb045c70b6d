#include "recognition/track.h"

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

void Track::end(double time) {
    ended = true;
    endTime = time;
}

} // namespace glidemap

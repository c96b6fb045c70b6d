// Creates tracks and finds limits for tests of pure geometry.
#pragma once

#include "kit/script.h"
#include "recognition/track.h"

#include <functional>
#include <initializer_list>
#include <utility>

namespace glidemap {

// Returns the track of a finger at these positions in sequence, 8 ms apart.
inline Track trackThrough(std::initializer_list<PadPoint> places) {
    Track track;
    double time = 0;
    for (const PadPoint place : places) {
        if (track.points.empty()) {
            track.begin(1, time, place);
        } else {
            track.moveTo(place);
        }
        time += 0.008;
    }
    track.end(time);
    return track;
}

// Returns the adjacent doubles between which `holds` changes from false to true, found by
// bisection. This is for limits on computed values that no argument reaches exactly.
inline std::pair<double, double> turningPoint(double falseAt, double trueAt,
                                              const std::function<bool(double)>& holds) {
    while (true) {
        const double middle = falseAt + (trueAt - falseAt) / 2;
        if (middle == falseAt || middle == trueAt) {
            return {falseAt, trueAt};
        }
        (holds(middle) ? trueAt : falseAt) = middle;
    }
}

} // namespace glidemap

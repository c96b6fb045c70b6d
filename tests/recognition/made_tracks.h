// Tracks and limits for tests of pure geometry.
#pragma once

#include "kit/script.h"
#include "recognition/track.h"

#include <functional>
#include <initializer_list>
#include <utility>

namespace glidemap {

// A finger that has been seen at these places, one after another, 8 ms apart.
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

// The neighbouring numbers between which `holds` turns from false to true, found by halving. For
// limits of computed values, which no argument need hit precisely.
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

#include "ui/demo/still_moment.h"

#include "ui/demo/gesture_demo.h"

#include <cmath>

namespace glidemap::demo {

namespace {

// Measures how much of a frame is visible.
struct Clarity {
    double fingers = 0; // the sum of their opacities
    double drawn = 0;   // the trail's length, plus the product of the ring's radius and opacity
};

double lengthOf(const std::vector<Point>& trail) {
    double length = 0;
    for (std::size_t index = 1; index < trail.size(); ++index) {
        length +=
            std::hypot(trail[index].x - trail[index - 1].x, trail[index].y - trail[index - 1].y);
    }
    return length;
}

Clarity clarityOf(const Frame& frame) {
    Clarity clarity;
    for (const Finger& finger : frame.fingers) {
        clarity.fingers += finger.opacity;
    }
    clarity.drawn = lengthOf(frame.trail);
    if (frame.ring) {
        clarity.drawn += frame.ring->radius * frame.ring->opacity;
    }
    return clarity;
}

bool isAtLeastAsClear(const Clarity& one, const Clarity& other) {
    constexpr double alike = 1e-6; // tolerates rounding errors
    if (std::abs(one.fingers - other.fingers) > alike) {
        return one.fingers > other.fingers;
    }
    return one.drawn > other.drawn - alike;
}

} // namespace

double stillMoment(GestureType gesture) {
    constexpr int moments = 260;
    double best = 0;
    Clarity clearest;
    for (int index = 0; index < moments; ++index) {
        const double t = loopDuration * index / moments;
        const Clarity clarity = clarityOf(frame(gesture, t));
        if (isAtLeastAsClear(clarity, clearest)) {
            best = t;
            clearest = clarity;
        }
    }
    return best;
}

} // namespace glidemap::demo

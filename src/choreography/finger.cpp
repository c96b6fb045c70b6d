#include "choreography/finger.h"

#include <algorithm>
#include <cmath>

namespace glidemap {

PadPoint pointAround(PadPoint centre, double distance, double angle) {
    return {centre.x + distance * std::cos(angle) / padAspect,
            centre.y + distance * std::sin(angle)};
}

double strokeProgress(double part) {
    // The minimum-jerk trajectory, which measured reaching movements follow closely.
    const double u = std::clamp(part, 0.0, 1.0);
    return u * u * u * (10 + u * (6 * u - 15));
}

FingerPath restingAt(PadPoint place) {
    return [place](double) {
        return place;
    };
}

FingerPath stroke(PadPoint start, PadPoint displacement, double time, double duration) {
    return [=](double now) {
        return start + displacement * strokeProgress((now - time) / duration);
    };
}

} // namespace glidemap

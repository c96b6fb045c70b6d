#include "ui/demo/frame_pace.h"

#include <cmath>

namespace glidemap::demo {

namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

constexpr milliseconds timerDelay{1};

// Screens have refresh rates within these limits. If a driver reports a rate outside them,
// framePeriod() assumes the usual rate.
constexpr double lowestRate = 20;
constexpr double highestRate = 1000;
constexpr double usualRate = 60;

} // namespace

nanoseconds framePeriod(double screenRate) {
    const bool isSensible = screenRate >= lowestRate && screenRate <= highestRate;
    const double frame = 1e9 / (isSensible ? screenRate : usualRate);
    const double wanted = static_cast<double>(nanoseconds(minFrame + timerDelay).count());
    return nanoseconds(std::llround(std::ceil(wanted / frame) * frame));
}

milliseconds untilNextFrame(nanoseconds now, nanoseconds period) {
    const nanoseconds earliest = now + minFrame;
    const nanoseconds sinceBeat = earliest % period;
    const nanoseconds beat = sinceBeat.count() == 0 ? earliest : earliest - sinceBeat + period;
    return std::chrono::ceil<milliseconds>(beat - now);
}

} // namespace glidemap::demo

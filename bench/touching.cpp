#include "bench/touching.h"

#include "recognition/track.h"

#include <algorithm>
#include <iterator>

namespace glidemap::bench {

namespace {

constexpr double leftmost = 0.05;
constexpr double lowest = 0.3;
constexpr double spacing = 0.06;
constexpr double step = 1.5 * Track::minStep;
constexpr int stepsPerDirection = 40;

} // namespace

MTTouch contact(std::int32_t identifier, double x, double y, MTTouchState state) {
    MTTouch record{};
    record.identifier = identifier;
    record.state = static_cast<std::int32_t>(state);
    record.normalized.pos = {static_cast<float>(x), static_cast<float>(y)};
    return record;
}

Report fingersAt(int count, double offset, std::int32_t firstIdentifier) {
    Report report;
    for (int finger = 0; finger < count; ++finger) {
        const double x = leftmost + spacing * finger + offset;
        report.push_back(contact(firstIdentifier + finger, x, lowest + offset));
    }
    return report;
}

std::vector<Report> movingFingers(int count, int length) {
    std::vector<Report> reports;
    for (int index = 0; index < length; ++index) {
        const int phase = index % (2 * stepsPerDirection);
        const int steps = phase <= stepsPerDirection ? phase : 2 * stepsPerDirection - phase;
        reports.push_back(fingersAt(count, step * steps));
    }
    return reports;
}

TouchFrame frameOf(const Report& report, double timestamp) {
    TouchFrame frame;
    frame.timestamp = timestamp;
    std::ranges::transform(report, std::back_inserter(frame.touches), touchPoint);
    return frame;
}

} // namespace glidemap::bench

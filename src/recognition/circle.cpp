#include "recognition/circle.h"

#include <cmath>
#include <cstddef>

namespace glidemap {

namespace {

constexpr std::size_t minPoints = 12;
constexpr double minDuration = 0.15; // seconds
constexpr double maxDuration = 3.0;
constexpr double minRadius = 0.05; // relative to the pad's height
constexpr double maxRadius = 0.55;
constexpr double maxRadiusDeviation = 0.35; // standard deviation relative to the mean radius
constexpr double minSweep = 4.8; // radians: about 275 degrees, which accepts an unfinished circle
constexpr double maxGap = 1.2;   // distance between start and end, relative to the mean radius

bool isRound(const Radii& radii) {
    return radii.mean >= minRadius && radii.mean <= maxRadius &&
           radii.deviation / radii.mean < maxRadiusDeviation;
}

bool isClosed(std::span<const PadPoint> path, double radius) {
    return distance(stretched(path.front()), stretched(path.back())) <= maxGap * radius;
}

} // namespace

std::optional<GestureType> circleOf(std::span<const PadPoint> path, double duration) {
    if (path.size() < minPoints || !(duration >= minDuration && duration <= maxDuration)) {
        return std::nullopt;
    }
    const PadPoint centre = centreOf(path);
    const Radii radii = radiiAround(centre, path);
    if (!isRound(radii)) {
        return std::nullopt;
    }
    const double total = sweptAngle(centre, path);
    if (!(std::abs(total) >= minSweep) || !isClosed(path, radii.mean)) {
        return std::nullopt;
    }
    return total > 0 ? GestureType::drawCircleCounterclockwise : GestureType::drawCircleClockwise;
}

PadPoint centreOf(std::span<const PadPoint> path) {
    PadPoint sum;
    for (const PadPoint point : path) {
        sum = sum + stretched(point);
    }
    const auto count = static_cast<double>(path.size());
    return {sum.x / count, sum.y / count};
}

Radii radiiAround(PadPoint centre, std::span<const PadPoint> path) {
    const auto count = static_cast<double>(path.size());
    double sum = 0;
    for (const PadPoint point : path) {
        sum += distance(stretched(point), centre);
    }
    const double mean = sum / count;
    double squares = 0;
    for (const PadPoint point : path) {
        const double difference = distance(stretched(point), centre) - mean;
        squares += difference * difference;
    }
    return {mean, std::sqrt(squares / count)};
}

double sweptAngle(PadPoint centre, std::span<const PadPoint> path) {
    double total = 0;
    double previous = angle(stretched(path.front()) - centre);
    for (const PadPoint point : path.subspan(1)) {
        const double current = angle(stretched(point) - centre);
        total += wrapped(current - previous);
        previous = current;
    }
    return total;
}

} // namespace glidemap

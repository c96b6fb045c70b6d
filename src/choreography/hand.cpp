#include "choreography/hand.h"

#include <algorithm>
#include <cstddef>

namespace glidemap {

namespace {

constexpr double liftingSkew = 0.008;

// Fingertips stay away from the rim of the pad, except in gestures that use the rim.
constexpr double rim = 0.05;

struct Extent {
    double low = 0;
    double high = 0;
};

// Returns the range that a layout covers on one axis while it moves by `displacement`.
Extent extent(const Places& layout, double PadPoint::*axis, double displacement) {
    const auto less = [axis](PadPoint a, PadPoint b) {
        return a.*axis < b.*axis;
    };
    const auto [low, high] = std::minmax_element(layout.begin(), layout.end(), less);
    return {(*low).*axis + std::min(displacement, 0.0),
            (*high).*axis + std::max(displacement, 0.0)};
}

double originFor(Extent covered, Chance& chance) {
    const double lowest = rim - covered.low;
    const double highest = 1 - rim - covered.high;
    return lowest < highest ? chance.between(lowest, highest) : (lowest + highest) / 2;
}

double partWithRoom(const Places& layout, double PadPoint::*axis, double displacement) {
    const Extent still = extent(layout, axis, 0);
    const double room = 1 - 2 * rim - (still.high - still.low);
    const double needed = std::max(displacement, -displacement);
    return needed > room ? std::max(room, 0.0) / needed : 1;
}

// Returns the distance between neighbouring fingers: the more fingers, the smaller the distance.
double spacing(int count, Chance& chance) {
    switch (count) {
    case 2:
        return chance.between(0.17, 0.26);
    case 3:
        return chance.between(0.13, 0.19);
    case 4:
        return chance.between(0.11, 0.15);
    default:
        return chance.between(0.09, 0.12);
    }
}

} // namespace

Places handLayout(int count, Chance& chance) {
    const double apart = spacing(count, chance);
    const double arch = chance.between(0.01, 0.03);
    const double middle = (count - 1) / 2.0;
    Places places;
    for (int finger = 0; finger < count; ++finger) {
        const double out = finger - middle;
        places.push_back(
            {out * apart + 0.01 * chance.wobble(), -arch * out * out + 0.02 * chance.wobble()});
    }
    if (count == 5) { // the thumb lies lower; it is on the left of a right hand
        const bool leftHand = chance.oneIn(8);
        (leftHand ? places.back() : places.front()).y -= chance.between(0.06, 0.14);
    }
    return places;
}

Places placeOnPad(const Places& layout, PadPoint displacement, Chance& chance) {
    const PadPoint origin = {originFor(extent(layout, &PadPoint::x, displacement.x), chance),
                             originFor(extent(layout, &PadPoint::y, displacement.y), chance)};
    Places places;
    places.reserve(layout.size());
    for (const PadPoint offset : layout) {
        places.push_back(origin + offset);
    }
    return places;
}

double partWithRoom(const Places& layout, PadPoint displacement) {
    return std::min(partWithRoom(layout, &PadPoint::x, displacement.x),
                    partWithRoom(layout, &PadPoint::y, displacement.y));
}

std::vector<double> landings(int count, double time, double longest, Chance& chance) {
    // Some people land all fingers at almost the same time, and others never do.
    const double skew = chance.between(0, longest);
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(count));
    for (int finger = 0; finger < count; ++finger) {
        times.push_back(time + chance.between(0, skew));
    }
    const auto first = std::min_element(times.begin(), times.end());
    *first = time;
    return times;
}

std::vector<double> liftings(int count, double time, Chance& chance) {
    return landings(count, time, liftingSkew, chance);
}

double latest(const std::vector<double>& times) {
    return *std::max_element(times.begin(), times.end());
}

} // namespace glidemap

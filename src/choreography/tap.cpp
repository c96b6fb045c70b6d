#include "choreography/families.h"
#include "choreography/hand.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace glidemap {

namespace {

// People's taps; the second half of a double tap is not the place to linger.
constexpr double shortestTap = 0.050;
constexpr double longestTap = 0.200;
constexpr double longestOfTwoTaps = 0.130;

// A tapping fingertip rolls a little.
FingerPath rolling(PadPoint place, double time, double duration, Chance& chance) {
    const double way = chance.between(0, 0.010);
    const double angle = chance.between(-std::numbers::pi, std::numbers::pi);
    return stroke(place, {way * std::cos(angle), way * std::sin(angle)}, time, duration);
}

// Adds one tap of the fingers at `places`, the first of which lands at `time`. Returns when the
// last has lifted.
double addTap(Fingers& fingers, const Places& places, double time, double longest, Chance& chance) {
    const int count = static_cast<int>(places.size());
    const auto down = landings(count, time, landingSkew, chance);
    const double lift = latest(down) + chance.between(shortestTap, longest - landingSkew);
    const auto up = liftings(count, lift, chance);
    for (std::size_t index = 0; index < places.size(); ++index) {
        FingerPath path = rolling(places[index], time, lift - time, chance);
        fingers.push_back({down[index], up[index], std::move(path)});
    }
    return latest(up);
}

// Where the second tap of two lands: about where the first did.
Places nearby(const Places& places, Chance& chance) {
    const PadPoint shift = {0.02 * chance.wobble(), 0.02 * chance.wobble()};
    Places result;
    for (const PadPoint place : places) {
        result.push_back(place + shift);
    }
    return result;
}

} // namespace

Fingers performTap(int count, Chance& chance) {
    Fingers fingers;
    addTap(fingers, placeOnPad(handLayout(count, chance), {}, chance), 0, longestTap, chance);
    return fingers;
}

Fingers performDoubleTap(int count, Chance& chance) {
    Fingers fingers;
    const Places places = placeOnPad(handLayout(count, chance), {}, chance);
    const double lifted = addTap(fingers, places, 0, longestOfTwoTaps, chance);
    const double pause = chance.between(0.060, 0.160);
    addTap(fingers, nearby(places, chance), lifted + pause, longestOfTwoTaps, chance);
    return fingers;
}

Fingers performCornerTap(Direction side, Direction end, Chance& chance) {
    const double across = chance.between(0.04, 0.13);
    const double along = chance.between(0.04, 0.13);
    const PadPoint corner = {side == Direction::left ? across : 1 - across,
                             end == Direction::down ? along : 1 - along};
    Fingers fingers;
    addTap(fingers, {corner}, 0, longestTap, chance);
    return fingers;
}

} // namespace glidemap

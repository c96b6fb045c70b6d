#include "choreography/families.h"
#include "choreography/hand.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace glidemap {

namespace {

// Measured durations of taps. Each half of a double tap is shorter.
constexpr double minTapDuration = 0.050;
constexpr double maxTapDuration = 0.200;
constexpr double maxDoubleTapPartDuration = 0.130;

// A fingertip rolls slightly during a tap.
FingerPath rolling(PadPoint place, double time, double duration, Chance& chance) {
    const double distance = chance.between(0, 0.010);
    const double angle = chance.between(-std::numbers::pi, std::numbers::pi);
    return stroke(place, {distance * std::cos(angle), distance * std::sin(angle)}, time, duration);
}

// Adds one tap of the fingers at `places`; the first finger lands at `time`. Returns the time at
// which the last finger lifts.
double addTap(Fingers& fingers, const Places& places, double time, double maxDuration,
              Chance& chance) {
    const int count = static_cast<int>(places.size());
    const auto down = landings(count, time, landingSkew, chance);
    const double lift = latest(down) + chance.between(minTapDuration, maxDuration - landingSkew);
    const auto up = liftings(count, lift, chance);
    for (std::size_t index = 0; index < places.size(); ++index) {
        FingerPath path = rolling(places[index], time, lift - time, chance);
        fingers.push_back({down[index], up[index], std::move(path)});
    }
    return latest(up);
}

// Returns positions for the second tap of a double tap, close to those of the first tap.
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
    addTap(fingers, placeOnPad(handLayout(count, chance), {}, chance), 0, maxTapDuration, chance);
    return fingers;
}

Fingers performDoubleTap(int count, Chance& chance) {
    Fingers fingers;
    const Places places = placeOnPad(handLayout(count, chance), {}, chance);
    const double lifted = addTap(fingers, places, 0, maxDoubleTapPartDuration, chance);
    const double pause = chance.between(0.060, 0.160);
    addTap(fingers, nearby(places, chance), lifted + pause, maxDoubleTapPartDuration, chance);
    return fingers;
}

Fingers performCornerTap(Direction side, Direction end, Chance& chance) {
    const double across = chance.between(0.04, 0.13);
    const double along = chance.between(0.04, 0.13);
    const PadPoint corner = {side == Direction::left ? across : 1 - across,
                             end == Direction::down ? along : 1 - along};
    Fingers fingers;
    addTap(fingers, {corner}, 0, maxTapDuration, chance);
    return fingers;
}

} // namespace glidemap

#include "choreography/families.h"
#include "choreography/hand.h"

#include <cmath>
#include <cstddef>

namespace glidemap {

Fingers performLongPress(int count, Chance& chance) {
    const Places places = placeOnPad(handLayout(count, chance), {}, chance);
    const auto down = landings(count, 0, landingSkew, chance);
    // A person holds until the program shows the recognised press, and needs at least 0.2 s to
    // react.
    const auto up = liftings(count, latest(down) + chance.between(1.0, 1.5), chance);
    Fingers fingers;
    for (std::size_t index = 0; index < places.size(); ++index) {
        fingers.push_back({down[index], up[index], restingAt(places[index])});
    }
    return fingers;
}

Fingers performFixAndTap(Direction side, Chance& chance) {
    const double apart = chance.between(0.12, 0.26);
    const double angle = angleOf(side) + chance.between(-0.4, 0.4);
    const PadPoint second = {apart * std::cos(angle), apart * std::sin(angle)};
    const Places places = placeOnPad({{0, 0}, second}, {}, chance);
    const double tap = chance.between(0.30, 0.70); // the resting finger settles first
    const double lift = tap + chance.between(0.060, 0.200);
    const double end = lift + chance.between(0.12, 0.40);
    return {{0, end, restingAt(places[0])}, {tap, lift, restingAt(places[1])}};
}

} // namespace glidemap

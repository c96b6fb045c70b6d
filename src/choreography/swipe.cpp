#include "choreography/families.h"
#include "choreography/hand.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace glidemap {

namespace {

// Measured swipes last 20 to 70 ms and cover 0.28 to 0.60 of the pad. A swipe that covers a longer
// distance usually takes more time.
constexpr double minTime = 0.020;
constexpr double maxTime = 0.070;
constexpr double minDistance = 0.28;
constexpr double maxDistance = 0.60;

struct Stroke {
    double time = 0;
    double duration = 0;
    double angle = 0;
    double length = 0;

    PadPoint displacement() const { return {length * std::cos(angle), length * std::sin(angle)}; }
};

// Fingers of one hand move in almost the same direction.
PadPoint fingerDisplacement(const Stroke& hand, Chance& chance) {
    Stroke finger = hand;
    finger.length *= 1 + 0.04 * chance.wobble();
    finger.angle += 0.04 * chance.wobble();
    return finger.displacement();
}

Stroke chooseStroke(Direction direction, double start, Chance& chance) {
    const double vigour = chance.between(0, 1);
    const double reach = std::clamp(vigour + chance.between(-0.25, 0.25), 0.0, 1.0);
    return {start, minTime + (maxTime - minTime) * vigour,
            angleOf(direction) + chance.between(-0.2, 0.2),
            minDistance + (maxDistance - minDistance) * reach};
}

} // namespace

Fingers performSwipe(int count, Direction direction, Chance& chance) {
    const Places layout = handLayout(count, chance);
    const auto down = landings(count, 0, landingSkew, chance);
    // The hand starts to move when its last finger has landed.
    Stroke hand = chooseStroke(direction, latest(down) + chance.between(0.010, 0.025), chance);
    hand.length *= partWithRoom(layout, hand.displacement());
    const Places places = placeOnPad(layout, hand.displacement(), chance);
    const auto up = liftings(count, hand.time + hand.duration + 0.004, chance);
    Fingers fingers;
    for (std::size_t index = 0; index < places.size(); ++index) {
        const PadPoint displacement = fingerDisplacement(hand, chance);
        fingers.push_back({down[index], up[index],
                           stroke(places[index], displacement, hand.time, hand.duration)});
    }
    return fingers;
}

} // namespace glidemap

#include "choreography/families.h"
#include "choreography/hand.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace glidemap {

namespace {

// The thumb and a finger land further apart in time than neighbouring fingers.
constexpr double thumbLandingSkew = 0.090;

// Two fingertips at the ends of a line that grows, shrinks or rotates about its midpoint, while the
// whole hand moves slightly.
struct Span {
    PadPoint centre;
    PadPoint handMove;
    double lengthBefore = 0; // in units of the pad's height
    double lengthAfter = 0;
    double angleBefore = 0;
    double angleAfter = 0;

    PadPoint end(double side, double part) const {
        const double length = lengthBefore + (lengthAfter - lengthBefore) * part;
        const double angle = angleBefore + (angleAfter - angleBefore) * part;
        return pointAround(centre + handMove * part, side * length / 2, angle);
    }
};

Fingers moveSpan(const Span& span, double duration, Chance& chance) {
    const auto down = landings(2, 0, thumbLandingSkew, chance);
    const double start = latest(down) + chance.between(0.010, 0.040);
    const auto up = liftings(2, start + duration + 0.004, chance);
    Fingers fingers;
    for (const std::size_t index : {0U, 1U}) {
        const double side = index == 0 ? -1 : 1;
        fingers.push_back({down[index], up[index], [=](double time) {
                               return span.end(side, strokeProgress((time - start) / duration));
                           }});
    }
    return fingers;
}

Span randomSpan(Chance& chance) {
    Span span;
    span.centre = {chance.between(0.44, 0.56), chance.between(0.44, 0.56)};
    span.handMove = {0.03 * chance.wobble(), 0.03 * chance.wobble()};
    return span;
}

} // namespace

Fingers performPinch(Pinch pinch, Chance& chance) {
    const double closed = chance.between(0.13, 0.22);
    const double open = chance.between(0.46, 0.70);
    Span span = randomSpan(chance);
    span.lengthBefore = pinch == Pinch::out ? closed : open;
    span.lengthAfter = pinch == Pinch::out ? open : closed;
    // Thumb at the lower left, finger at the upper right. The line hardly rotates.
    span.angleBefore = chance.between(0.3, 1.3);
    span.angleAfter = span.angleBefore + chance.between(-0.25, 0.25);
    return moveSpan(span, chance.between(0.20, 0.60), chance);
}

Fingers performRotation(Turn turn, Chance& chance) {
    const double angle = chance.between(1.1, 1.8);
    Span span = randomSpan(chance);
    span.lengthBefore = chance.between(0.35, 0.60);
    span.lengthAfter = span.lengthBefore * (1 + chance.between(-0.08, 0.08));
    span.angleBefore = chance.between(0.0, std::numbers::pi);
    span.angleAfter = span.angleBefore + (turn == Turn::counterclockwise ? angle : -angle);
    return moveSpan(span, chance.between(0.25, 0.70), chance);
}

} // namespace glidemap

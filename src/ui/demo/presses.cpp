// Clicks and long presses: a click shows a ripple, and during a long press a ring fades in.
#include "motions.h"

#include <algorithm>
#include <cmath>

namespace glidemap::demo {

namespace {

std::optional<Ring> ripple(double t) {
    const double spread = std::min((t - 1.05) / 0.7, 1.0);
    if (spread > 0 && spread < 1) {
        return Ring{padCenter, 0.14 + 0.24 * spread, 0.8 * (1 - spread)};
    }
    return std::nullopt;
}

// The ring fades in, pulses about once per second, and disappears together with the fingers.
std::optional<Ring> holdRing(double t, double fingerOpacity) {
    const double held = smoothstep((t - 0.6) / 1.3);
    if (held > 0 && fingerOpacity > 0) {
        return Ring{padCenter, 0.22 + 0.02 * std::sin(6 * t), 0.7 * held};
    }
    return std::nullopt;
}

} // namespace

Frame click(GestureType gesture, double t) {
    const int count = fingerCount(gesture);
    const double pressed = env(t, 1.0, 1.5, 0.12);
    return {.fingers = fingersAt(hand(count, padCenter, restingSpacing), env(t, 0.4, 2.2, 0.18),
                                 1 - 0.28 * pressed),
            .trail = {},
            .ring = ripple(t)};
}

Frame longPress(GestureType gesture, double t) {
    const int count = fingerCount(gesture);
    const double opacity = env(t, 0.4, 2.2, 0.15);
    return {.fingers = fingersAt(hand(count, padCenter, restingSpacing), opacity),
            .trail = {},
            .ring = holdRing(t, opacity)};
}

} // namespace glidemap::demo

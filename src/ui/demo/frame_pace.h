// When a demonstration draws its next frame: in step with the screen, so that each picture stays for
// the same number of the screen's frames, and at most 40 times a second.
//
// Units:   the screen's rate in frames a second; times on a steady clock.
// Thread:  any; pure functions.
// Errors:  a screen without a sensible rate counts as one of 60.
#pragma once

#include <chrono>

namespace glidemap::demo {

inline constexpr std::chrono::milliseconds shortestFrame{25};

// As few of the screen's frames as last for the shortest frame, with room for a timer's delay.
std::chrono::nanoseconds framePeriod(double screenRate);

// From now until the next beat of that period that is at least the shortest frame away.
std::chrono::milliseconds untilNextFrame(std::chrono::nanoseconds now,
                                         std::chrono::nanoseconds period);

} // namespace glidemap::demo

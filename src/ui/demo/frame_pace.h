// Computes when a demonstration draws its next frame: in step with the screen, so that each picture
// lasts the same number of screen frames, and at most 40 times per second.
//
// Units:   the screen's rate in frames per second; times on a steady clock.
// Thread:  any; pure functions.
// Errors:  an implausible rate is treated as 60.
#pragma once

#include <chrono>

namespace glidemap::demo {

inline constexpr std::chrono::milliseconds minFrame{25};

// The smallest whole number of screen frames that lasts at least minFrame, with a margin for a
// timer's delay.
std::chrono::nanoseconds framePeriod(double screenRate);

// The time from `now` until the next multiple of the period that is at least minFrame away.
std::chrono::milliseconds untilNextFrame(std::chrono::nanoseconds now,
                                         std::chrono::nanoseconds period);

} // namespace glidemap::demo

// Computes when a demonstration draws its next frame. Frames follow the screen's refresh rate, so
// that each frame stays on the screen for the same number of refreshes. There are at most 40 frames
// per second.
//
// Units:   the screen's rate in frames per second; times on a steady clock.
// Thread:  any; pure functions.
// Errors:  an implausible rate is treated as 60.
#pragma once

#include <chrono>

namespace glidemap::demo {

inline constexpr std::chrono::milliseconds minFrame{25};

// Returns the shortest multiple of the screen's refresh interval that lasts at least minFrame plus
// the timer's delay.
std::chrono::nanoseconds framePeriod(double screenRate);

// Returns the time from `now` until the first multiple of `period` that is at least minFrame away.
std::chrono::milliseconds untilNextFrame(std::chrono::nanoseconds now,
                                         std::chrono::nanoseconds period);

} // namespace glidemap::demo

// A modern touchpad that no maker has built, and what fingers do to it, for tests that are not
// about a certain pad.
//
// Units:   positions in the pad's own: x 0..4000, y 0..2000, growing downwards as on every
// touchpad.
#pragma once

#include "recorded_pad.h"

#include <cstddef>
#include <cstdint>

namespace glidemap::vm {

inline constexpr std::int32_t ordinaryWidth = 4000;
inline constexpr std::int32_t ordinaryHeight = 2000;
inline constexpr std::int32_t ordinarySlots = 5;

// Five fingers, 40 units a millimetre, a clickpad.
PadShape ordinaryPad();

// The same in another colour: another product of the same maker.
PadShape otherPad();

EventFrame fingerDown(std::int32_t slot, std::int32_t trackingId, std::int32_t x, std::int32_t y);
EventFrame fingerMove(std::int32_t slot, std::int32_t x, std::int32_t y);
EventFrame fingerUp(std::int32_t slot);

// The key by which a touchpad says that so many fingers are on it, one to five.
std::uint16_t fingerTool(std::size_t count);

// What happens at one moment.
EventFrame together(std::initializer_list<EventFrame> frames);

// Where the program sees a position of the ordinary pad.
float seenX(std::int32_t x);
float seenY(std::int32_t y);

} // namespace glidemap::vm

// An invented modern touchpad and the events of its fingers, for tests that do not need a
// particular touchpad.
//
// Units:   positions in units of the pad: x 0..4000 from left to right, y 0..2000 from top to
//          bottom.
#pragma once

#include "recorded_pad.h"

#include <cstddef>
#include <cstdint>

namespace glidemap::test {

inline constexpr std::int32_t ordinaryWidth = 4000;
inline constexpr std::int32_t ordinaryHeight = 2000;
inline constexpr std::int32_t ordinarySlots = 5;

// Describes a clickpad with five slots and 40 units per millimetre.
PadShape ordinaryPad();

// Describes the same touchpad with another name and another product id.
PadShape otherPad();

EventFrame fingerDown(std::int32_t slot, std::int32_t trackingId, std::int32_t x, std::int32_t y);
EventFrame fingerMove(std::int32_t slot, std::int32_t x, std::int32_t y);
EventFrame fingerUp(std::int32_t slot);

// Returns the key with which a touchpad reports `count` fingers, from one to five.
std::uint16_t fingerTool(std::size_t count);

// Joins the frames into one frame.
EventFrame together(std::initializer_list<EventFrame> frames);

// Returns the normalised position that the program reports for the ordinary pad.
float seenX(std::int32_t x);
float seenY(std::int32_t y);

} // namespace glidemap::test

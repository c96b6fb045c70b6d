// One contact, in the exact memory layout that the touch driver uses. On macOS, that driver is a
// closed-source library.
//
// Units:   normalised positions 0..1 on both axes, origin bottom-left, y upwards; other
//          fields in the driver's units.
// Errors:  none; every field is external input and may hold any value.
#pragma once

#include <cstddef>
#include <cstdint>

namespace glidemap {

struct MTPoint {
    float x;
    float y;
};
static_assert(sizeof(MTPoint) == 8 && alignof(MTPoint) == 4);
static_assert(offsetof(MTPoint, y) == 4);

struct MTReadout {
    MTPoint pos;
    MTPoint vel;
};
static_assert(sizeof(MTReadout) == 16 && alignof(MTReadout) == 4);
static_assert(offsetof(MTReadout, vel) == 8);

// The phase of a contact. Only makeTouch and touching count as touching. Our own drivers report the
// other codes for a contact that approaches or leaves the pad.
enum class MTTouchState : std::int32_t {
    hoverInRange = 2,
    makeTouch = 3,
    touching = 4,
    outOfRange = 7,
};

// Recognition reads only `identifier`, `state` and `normalized.pos`.
struct MTTouch {
    std::int32_t frame;
    double timestamp;
    std::int32_t identifier; // constant while the finger is on the pad
    std::int32_t state;      // an MTTouchState or any other number
    std::int32_t fingerID;
    std::int32_t handID;
    MTReadout normalized;
    float zTotal;
    std::int32_t field9;
    float angle;
    float majorAxis;
    float minorAxis;
    MTReadout absolute;
    std::int32_t field14;
    std::int32_t field15;
    float zDensity;
};
static_assert(sizeof(MTTouch) == 96 && alignof(MTTouch) == 8);
static_assert(offsetof(MTTouch, frame) == 0);
static_assert(offsetof(MTTouch, timestamp) == 8);
static_assert(offsetof(MTTouch, identifier) == 16);
static_assert(offsetof(MTTouch, state) == 20);
static_assert(offsetof(MTTouch, fingerID) == 24);
static_assert(offsetof(MTTouch, handID) == 28);
static_assert(offsetof(MTTouch, normalized) == 32);
static_assert(offsetof(MTTouch, zTotal) == 48);
static_assert(offsetof(MTTouch, field9) == 52);
static_assert(offsetof(MTTouch, angle) == 56);
static_assert(offsetof(MTTouch, majorAxis) == 60);
static_assert(offsetof(MTTouch, minorAxis) == 64);
static_assert(offsetof(MTTouch, absolute) == 68);
static_assert(offsetof(MTTouch, field14) == 84);
static_assert(offsetof(MTTouch, field15) == 88);
static_assert(offsetof(MTTouch, zDensity) == 92);

// Returns whether a phase code means that the finger touches the pad. The code may have any value.
constexpr bool isTouchingState(std::int32_t state) {
    constexpr std::uint32_t touchingStates = 0x18; // makeTouch and touching
    const auto code = static_cast<std::uint32_t>(state);
    return code < 8 && (touchingStates >> code & 1U) != 0;
}

} // namespace glidemap

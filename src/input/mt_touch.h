// One contact as a touch driver reports it: the record's exact layout in memory, shared with a
// closed library.
//
// Units:   normalised positions 0..1 on both axes, origin bottom-left, y upwards; other fields as
// the driver has them. Errors:  none here; every field comes from outside and may hold anything.
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

// The phase of a contact. Only making and keeping contact count as touching; the other codes are
// those that our own drivers report for a contact that is on its way in or out.
enum class MTTouchState : std::int32_t {
    hoverInRange = 2,
    makeTouch = 3,
    touching = 4,
    outOfRange = 7,
};

// Only `identifier`, `state` and `normalized.pos` are read by recognition.
struct MTTouch {
    std::int32_t frame;
    double timestamp;
    std::int32_t identifier; // stays the same while the finger stays on the pad
    std::int32_t state;      // an MTTouchState, or any other number
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

// Whether a phase code means that the finger is in contact. Any number is allowed, negative ones
// too.
constexpr bool isTouchingState(std::int32_t state) {
    constexpr std::uint32_t touchingStates = 0x18; // makeTouch and touching
    const auto code = static_cast<std::uint32_t>(state);
    return code < 8 && (touchingStates >> code & 1U) != 0;
}

} // namespace glidemap

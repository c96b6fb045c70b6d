// The click filter, which extends the touch driver's C interface. While the filter is on, the evdev
// driver grabs touchpads that have buttons. A clone of each touchpad forwards all events except the
// button changes that the filter drops.
//
// Thread:  any thread may set and switch the filter, also from within the filter's function. That
//          function runs on the driver's reader thread, after the contact callback of the same
//          frame.
// Owner:   the driver keeps the function and its context until they are replaced. After
//          GlidemapSetClickFilter has returned, the previous filter is not called again. It is not
//          running either, unless the filter itself made the call.
// Errors:  a touchpad that cannot be grabbed or cloned is not filtered: all its clicks pass. If
//          another program has grabbed it, the driver retries when a later touch ends. If cloning
//          fails, the driver retries after a delay, and also when the filter is switched on again,
//          even if it is already on.
#pragma once

#include "input/touch_driver.h"

#include <cstdint>

namespace glidemap::driver {

enum ClickFilterEvent : std::int32_t {
    clickFilterButtonDown = 0,
    clickFilterButtonUp = 1,
    clickFilterDisabledByTimeout =
        2, // forwarding stalled; all clicks pass until the filter is switched on again
};

// `button` is 0 for left, 1 for right. Returns true to drop a button change; for other events the
// result is ignored. A release whose press was forwarded is always forwarded. The filter is not
// called for clicks while the touchpad is not grabbed.
using FilterClick = bool (*)(void* context, Device device, std::int32_t event, std::int32_t button);

// Null removes the filter and releases all touchpads.
using SetClickFilter = void (*)(FilterClick filter, void* context);

// The filter is initially off. A stall switches it off until it is switched on again. The driver
// grabs and releases a touchpad only while no finger touches it, but stopping a device releases its
// touchpad immediately.
using SwitchClickFilter = void (*)(bool on);

// Returns whether this user may create clones, which the filter requires.
using CanFilterClicks = bool (*)();

// Returns the reason why a touchpad's clicks are not filtered although the filter is on, in English
// for a log. Returns null if no such reason exists. The text is never freed.
using ClickFilterObstacle = const char* (*)(Device device);

// A temporary obstacle, which disappears within two seconds.
inline constexpr const char* cloneIsNew = "the system is initialising the touchpad's clone";

inline constexpr const char* setClickFilterSymbol = "GlidemapSetClickFilter";
inline constexpr const char* switchClickFilterSymbol = "GlidemapSwitchClickFilter";
inline constexpr const char* canFilterClicksSymbol = "GlidemapCanFilterClicks";
inline constexpr const char* clickFilterObstacleSymbol = "GlidemapClickFilterObstacle";

} // namespace glidemap::driver

// Further functions of the evdev driver's C interface: its click filter. While the filter is on,
// the driver grabs touchpads with buttons. A clone of each forwards all events but the button
// changes that the filter drops.
//
// Thread:  set and switch the filter on any thread, also from within the callback. The callback
//          runs on the reader's thread, after the contact callback of the same frame.
// Owner:   the driver keeps the function and its context until they are replaced. Once
//          GlidemapSetClickFilter has returned, the previous filter is not called any more, unless
//          the call came from within that filter.
// Errors:  a touchpad that cannot be grabbed or cloned stays as it is: its clicks pass, unfiltered.
//          If another program has grabbed it, the driver retries once that program releases it. If
//          it could not be cloned, the driver retries when the filter is switched on again (also if
//          it is on).
#pragma once

#include "input/touch_driver.h"

#include <cstdint>

namespace glidemap::driver {

enum ClickFilterEvent : std::int32_t {
    clickFilterButtonDown = 0,
    clickFilterButtonUp = 1,
    clickFilterDisabledByTimeout =
        2, // the forwarding stalled; everything passes until the filter is on again
};

// `button` is 0 left, 1 right. True drops a button change; for other events the result is ignored.
// A release whose press was forwarded is always forwarded. The filter is not called for a press and
// its release while the touchpad is not grabbed.
using FilterClick = bool (*)(void* context, Device device, std::int32_t event, std::int32_t button);

// Null removes the filter and gives back every touchpad.
using SetClickFilter = void (*)(FilterClick filter, void* context);

// The filter is off at first, and off after a stall until it is switched on again. The driver grabs
// and gives back a touchpad only while no finger touches it. Stopping a device gives its touchpad
// back at once.
using SwitchClickFilter = void (*)(bool on);

// Returns whether this user can filter clicks, that is, may make clones.
using CanFilterClicks = bool (*)();

// Returns why the clicks of a touchpad are not filtered although the filter is on, in English for a
// log. Returns null if nothing prevents it. The text is never freed.
using ClickFilterObstacle = const char* (*)(Device device);

// A temporary reason: it disappears by itself within two seconds.
inline constexpr const char* cloneIsNew = "the system is initialising the touchpad's clone";

inline constexpr const char* setClickFilterSymbol = "GlidemapSetClickFilter";
inline constexpr const char* switchClickFilterSymbol = "GlidemapSwitchClickFilter";
inline constexpr const char* canFilterClicksSymbol = "GlidemapCanFilterClicks";
inline constexpr const char* clickFilterObstacleSymbol = "GlidemapClickFilterObstacle";

} // namespace glidemap::driver

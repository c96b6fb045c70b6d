// Further functions of the evdev driver's C interface: its click filter. While it is on, touchpads
// with buttons are grabbed, and what they say is said again by a clone of each, event for event,
// less the button changes that the filter drops.
//
// Thread:  set and switched on any thread, from within the callback, too; the callback is called on
//          the reader's thread, after the contact callback of the same moment.
// Owner:   the driver keeps the function and the context until they are replaced; once
//          GlidemapSetClickFilter has returned the ones before are not called any more (unless it
//          was called from within the callback).
// Errors:  a touchpad that cannot be grabbed or cloned stays as it is: its clicks pass, unfiltered.
//          One that somebody else has is tried again when it is let go; one that could not be
//          cloned, when the filter is switched on again (also if it is on).
#pragma once

#include "input/touch_driver.h"

#include <cstdint>

namespace glidemap::driver {

enum ClickFilterEvent : std::int32_t {
    clickFilterButtonDown = 0,
    clickFilterButtonUp = 1,
    clickFilterDisabledByTimeout =
        2, // the forwarding stalled; everything passes until it is on again
};

// `button` is 0 left, 1 right. True drops the button change; the answer to the others is ignored. A
// release whose press has passed is not dropped whatever the answer, and nobody is asked about a
// press and its release while the touchpad is not grabbed.
using FilterClick = bool (*)(void* context, Device device, std::int32_t event, std::int32_t button);

// Null takes the filter away and gives every touchpad back.
using SetClickFilter = void (*)(FilterClick filter, void* context);

// Off to begin with, and after a stall until it is switched on again. A touchpad is taken and given
// back only while nobody touches it; stopping a device gives it back at once.
using SwitchClickFilter = void (*)(bool on);

// Whether this user could filter clicks at all: touchpads could be cloned.
using CanFilterClicks = bool (*)();

// Why the clicks of a touchpad are not filtered although the filter is on, as English text for a log;
// null if nothing stands in the way. The text is never freed.
using ClickFilterObstacle = const char* (*)(Device device);

// The obstacle that goes away by itself, within two seconds.
inline constexpr const char* cloneIsNew = "the system is getting to know the touchpad's clone";

inline constexpr const char* setClickFilterSymbol = "GlidemapSetClickFilter";
inline constexpr const char* switchClickFilterSymbol = "GlidemapSwitchClickFilter";
inline constexpr const char* canFilterClicksSymbol = "GlidemapCanFilterClicks";
inline constexpr const char* clickFilterObstacleSymbol = "GlidemapClickFilterObstacle";

} // namespace glidemap::driver

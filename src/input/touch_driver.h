// The C interface of a touch driver: a library that is loaded by path and exports five symbols.
//
// Thread:  the functions are called on the main thread; a device calls its callback on a
//          thread of the driver.
// Owner:   the driver owns devices and records; records are valid only during the callback.
// Errors:  creating the list may return null. A device's callback is not called after its stop
//          function has returned, unless the callback itself stopped the device.
#pragma once

#include "input/mt_touch.h"

#include <cstdint>

namespace glidemap::driver {

using Device = void*;
using DeviceList = const void*;

// `records` may be null and `count` may have any value; a report without records means that no
// finger touches.
using ContactCallback = std::int32_t (*)(Device device, const MTTouch* records, std::int32_t count,
                                         double timestamp, std::int32_t frame);

using CreateList = DeviceList (*)();
using RegisterContactFrameCallback = void (*)(Device device, ContactCallback callback);
using UnregisterContactFrameCallback = void (*)(Device device, ContactCallback callback);
using Start = void (*)(Device device, std::int32_t mode);
using Stop = void (*)(Device device);

inline constexpr const char* createListSymbol = "MTDeviceCreateList";
inline constexpr const char* registerCallbackSymbol = "MTRegisterContactFrameCallback";
inline constexpr const char* unregisterCallbackSymbol = "MTUnregisterContactFrameCallback";
inline constexpr const char* startSymbol = "MTDeviceStart";
inline constexpr const char* stopSymbol = "MTDeviceStop";

// Functions that read the list. macOS uses those of CoreFoundation; our own drivers export them in
// addition to the five symbols.
using ListCount = long (*)(DeviceList list);
using ListValueAtIndex = const void* (*)(DeviceList list, long index);

inline constexpr const char* listCountSymbol = "GlidemapDeviceListCount";
inline constexpr const char* listValueAtIndexSymbol = "GlidemapDeviceListValueAtIndex";

// Optional, in our own drivers: reports the touchpads' physical buttons (0 left, 1 right, 2 middle)
// on the same thread as contacts. The contact report of the same moment comes first. Null removes
// the callback.
using ButtonCallback = void (*)(Device device, std::int32_t button, bool down, double timestamp);
using SetButtonCallback = void (*)(ButtonCallback callback);

inline constexpr const char* setButtonCallbackSymbol = "GlidemapSetButtonCallback";

// Optional, in the evdev driver: returns the number of touchpads that the last MTDeviceCreateList
// found but that this user may not read.
using UnreadableTouchpadCount = std::int32_t (*)();

inline constexpr const char* unreadableTouchpadCountSymbol = "GlidemapUnreadableTouchpadCount";

// Optional, in the replay driver: passes one report to the callback of a started device, on the
// caller's thread. Intended for a player with its own clock. After a call to EnablePushing,
// creating the list returns one device, which has neither a recording nor a thread.
using EnablePushing = void (*)();
using Push = void (*)(const MTTouch* records, std::int32_t count, double timestamp);

inline constexpr const char* enablePushingSymbol = "GlidemapReplayEnablePushing";
inline constexpr const char* pushSymbol = "GlidemapReplayPush";

} // namespace glidemap::driver

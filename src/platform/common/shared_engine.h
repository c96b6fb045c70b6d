// Creates the touch engine and the device manager of the process, with real threads and the real
// clock.
//
// Thread:  the main thread, before the first use of the engine or the manager.
// Errors:  none; the device manager reports a driver that cannot be loaded.
#pragma once

#include "input/multitouch_device_manager.h"
#include "platform/common/work_within.h"

#include <string_view>

namespace glidemap {

// `setUpThread` runs at the start of each engine thread and gets the thread's name. These threads
// are latency-sensitive. `within` wraps each task of these threads.
MultitouchDeviceManager& makeSharedEngine(TouchDriverPlatform platform,
                                          void (*setUpThread)(std::string_view name),
                                          WorkWithin within = nullptr);

} // namespace glidemap

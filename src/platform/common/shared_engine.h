// Creates the process's touch engine and device manager, on real threads and the real clock.
//
// Thread:  the main thread, before the first use of either.
// Errors:  none; the device manager reports a driver that cannot be loaded.
#pragma once

#include "input/multitouch_device_manager.h"
#include "platform/common/work_within.h"

#include <string_view>

namespace glidemap {

// `setUpThread` runs on each of the engine's threads with the thread's name; these threads are
// latency-sensitive. `within` wraps each task of the threads.
MultitouchDeviceManager& makeSharedEngine(TouchDriverPlatform platform,
                                          void (*setUpThread)(std::string_view name),
                                          WorkWithin within = nullptr);

} // namespace glidemap

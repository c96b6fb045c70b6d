// The process's one touch engine and its one device manager, on real threads and the real clock.
//
// Thread:  the main thread, before anyone asks for either.
// Errors:  none; a driver that cannot be loaded is the device manager's to tell.
#pragma once

#include "input/multitouch_device_manager.h"
#include "platform/common/work_within.h"

#include <string_view>

namespace glidemap {

// Each of the engine's threads sets itself up with its name: what they do a person waits to see. Each
// piece of that is done within what is given.
MultitouchDeviceManager& makeSharedEngine(TouchDriverPlatform platform,
                                          void (*setUpThread)(std::string_view name),
                                          WorkWithin within = nullptr);

} // namespace glidemap

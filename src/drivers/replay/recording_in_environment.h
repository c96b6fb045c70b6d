// The device that the environment selects: GLIDEMAP_RECORDING names the recording,
// GLIDEMAP_RECORDING_LOOP=1 repeats it.
//
// Thread:  the main one.
// Errors:  one line on standard error, and no device. A recording is played only if all of it can
//          be read.
#pragma once

#include "drivers/replay/replay_device.h"

#include <memory>

namespace glidemap::replay {

std::unique_ptr<ReplayDevice> deviceFromEnvironment();

} // namespace glidemap::replay

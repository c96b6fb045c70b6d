// Finds touchpads as udev knows them, and learns from udev and from the access rights in /dev/input
// when one may have come back.
//
// Thread:  one at a time.
// Errors:  none; without udev there are no touchpads.
#pragma once

#include "drivers/evdev/pad_directory.h"

#include <memory>
#include <vector>

namespace glidemap {

class UdevDirectory : public PadDirectory {
public:
    std::vector<PadCandidate> candidates() override;
    Opened open(const PadCandidate& candidate) override;
    std::unique_ptr<ReturnWatch> watch() override;
};

} // namespace glidemap

// Finds touchpads through udev and sysfs, which every user may read, without opening a device.
//
// Thread:  one at a time.
// Errors:  none; without udev there are no touchpads.
#pragma once

#include "drivers/evdev/pad_directory.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

class UdevDirectory : public PadDirectory {
public:
    std::vector<PadCandidate> candidates() override;
    std::optional<PadCandidate> candidateAt(const std::string& node) override;
    std::unique_ptr<OpenPad> open(const PadCandidate& candidate) override;
    std::unique_ptr<ReturnWatch> watch() override;
    std::unique_ptr<CloneWatch> watchClones() override;
};

} // namespace glidemap

// The nodes of this machine, as udev and sysfs know them: anyone may ask, and no device is opened.
//
// Thread:  one at a time.
// Errors:  none; without udev there are no touchpads.
#pragma once

#include "platform/linux/access/input_nodes.h"

namespace glidemap {

class UdevInputNodes : public InputNodes {
public:
    std::vector<std::string> touchpads() override;
    bool mayRead(const std::string& node) override;
    bool mayMakeDevices() override;
};

} // namespace glidemap

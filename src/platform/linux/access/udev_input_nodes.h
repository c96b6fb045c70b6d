// Finds the device nodes of this machine with udev and sysfs. Needs no privileges and opens no
// devices.
//
// Thread:  any, but only one call at a time.
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

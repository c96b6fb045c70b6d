// Port: the device nodes that the program needs, and this user's rights to them.
//
// Thread:  any, but one call at a time.
// Errors:  none; a right that cannot be determined counts as missing.
#pragma once

#include <string>
#include <vector>

namespace glidemap {

class InputNodes {
public:
    InputNodes() = default;
    InputNodes(const InputNodes&) = delete;
    InputNodes& operator=(const InputNodes&) = delete;
    virtual ~InputNodes() = default;

    // The nodes of the touchpads that the udev rules grant: not our clones, and no node that is
    // also a keyboard.
    virtual std::vector<std::string> touchpads() = 0;

    virtual bool mayRead(const std::string& node) = 0;

    // Whether this user can create virtual keyboards and touchpads.
    virtual bool mayMakeDevices() = 0;
};

} // namespace glidemap

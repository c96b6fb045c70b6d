// Port: the device nodes that the program needs, and this user's access rights to them.
//
// Thread:  any, but only one call at a time.
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

    // Returns the nodes of the touchpads to which the udev rules grant access. These rules exclude
    // our clones, and any node that is also a keyboard.
    virtual std::vector<std::string> touchpads() = 0;

    virtual bool mayRead(const std::string& node) = 0;

    // Whether this user can create virtual keyboards and touchpads.
    virtual bool mayMakeDevices() = 0;
};

} // namespace glidemap

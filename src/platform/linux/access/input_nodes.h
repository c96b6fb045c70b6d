// Port: the device nodes that the program needs, and what this user may do with them.
//
// Thread:  one at a time.
// Errors:  none; what cannot be found out may not be done.
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

    // Those of touchpads that access is given to: none that is a keyboard, too, and none of our
    // own.
    virtual std::vector<std::string> touchpads() = 0;

    virtual bool mayRead(const std::string& node) = 0;

    // Whether virtual keyboards and touchpads can be made.
    virtual bool mayMakeDevices() = 0;
};

} // namespace glidemap

// Fake device nodes whose permissions the test sets.
//
// Thread:  the test's.
// Owner:   the service under test; the permissions belong to the test and outlive it.
#pragma once

#include "platform/linux/access/input_nodes.h"

#include <set>
#include <string>
#include <vector>

namespace glidemap::test {

class FakeInputNodes : public InputNodes {
public:
    struct Permissions {
        std::vector<std::string> touchpads;
        std::set<std::string> readable;
        bool mayMakeDevices = false;
    };

    explicit FakeInputNodes(const Permissions& present) : permissions(present) {}

    std::vector<std::string> touchpads() override { return permissions.touchpads; }
    bool mayRead(const std::string& node) override { return permissions.readable.contains(node); }
    bool mayMakeDevices() override { return permissions.mayMakeDevices; }

private:
    const Permissions& permissions;
};

} // namespace glidemap::test

// Controls the fake menu bar.
#pragma once

#include <set>
#include <string>

namespace glidemap::test {

struct StatusItemScene {
    std::set<std::string> symbols; // the symbols that the system has
    bool hasItem = true;
};

// Returns the state of the fake. The fixture's set-up resets it.
StatusItemScene& statusItemScene();

} // namespace glidemap::test

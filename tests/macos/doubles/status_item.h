// What the menu bar has, for a test.
#pragma once

#include <set>
#include <string>

namespace glidemap::doubles {

struct StatusItemScene {
    std::set<std::string> symbols; // which the system has
    bool hasItem = true;
};

// Reset by every test's set-up.
StatusItemScene& statusItemScene();

} // namespace glidemap::doubles

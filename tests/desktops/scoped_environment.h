// Sets variables of this process's environment until the object is destroyed.
//
// Thread:  one, while no other thread runs.
// Owner:   a test.
// Errors:  none.
#pragma once

#include "kit/in_environment.h"

#include <list>
#include <map>
#include <string>

namespace glidemap::test {

class ScopedEnvironment {
public:
    // An empty value unsets the variable.
    explicit ScopedEnvironment(const std::map<std::string, std::string>& values);

private:
    std::list<InEnvironment> variables;
};

} // namespace glidemap::test
